// Fake AppKit: screens, running applications, the workspace.
#import <AppKit/AppKit.h>

#import "tests/macos/fake/cocoa/Cocoa.h"

#include "tests/macos/fake/Preferences.h"

#include <algorithm>

using namespace vantrel::fake::cocoa;

namespace {

NSRect rect(const Area& area) {
    return {{area.x, area.y}, {area.width, area.height}};
}

} // namespace

@implementation NSScreen {
@public
    // A copy, because the screen may be gone.
    std::string _name;
    Screen _shown;
}
+ (NSArray*)screens {
    std::vector<id> made;
    for (const Screen& screen : vantrel::fake::cocoa::system().screens) {
        NSScreen* const object = [[NSScreen new] autorelease];
        object->_shown = screen;
        made.push_back(object);
    }
    return makeArray(made);
}
- (NSRect)frame {
    return rect(_shown.frame);
}
- (NSRect)visibleFrame {
    return rect(_shown.visibleFrame);
}
- (NSString*)localizedName {
    return make(_shown.name);
}
- (NSDictionary*)deviceDescription {
    std::vector<std::pair<id, id>> entries{{@"NSDeviceIsScreen", @"YES"}};
    if (_shown.isNumberText) {
        entries.emplace_back(@"NSScreenNumber", make("7"));
    } else if (_shown.number) {
        entries.emplace_back(@"NSScreenNumber", [NSNumber numberWithUnsignedInt:*_shown.number]);
    }
    return makeDictionary(entries);
}
@end

@implementation NSRunningApplication {
@public
    std::shared_ptr<Application> _shown;
}
+ (NSArray*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier {
    std::vector<id> made;
    for (NSRunningApplication* const app in NSWorkspace.sharedWorkspace.runningApplications) {
        if ([app.bundleIdentifier isEqualToString:bundleIdentifier]) {
            made.push_back(app);
        }
    }
    return makeArray(made);
}
+ (NSRunningApplication*)currentApplication {
    return [[NSRunningApplication new] autorelease];
}
- (pid_t)processIdentifier {
    return _shown->pid;
}
- (NSApplicationActivationPolicy)activationPolicy {
    return static_cast<NSApplicationActivationPolicy>(_shown->policy);
}
- (NSString*)bundleIdentifier {
    return make(_shown->bundleID);
}
- (NSString*)localizedName {
    return make(_shown->name);
}
- (BOOL)isHidden {
    return _shown->isHidden;
}
- (BOOL)isTerminated {
    return _shown->isTerminated;
}
- (BOOL)isFinishedLaunching {
    return vantrel::fake::cocoa::system().isFinishedLaunching;
}
- (BOOL)hide {
    vantrel::fake::cocoa::system().calls.push_back("hide " + std::to_string(_shown->pid));
    _shown->isHidden = _shown->isHidden || _shown->obeys;
    return _shown->obeys;
}
- (BOOL)unhide {
    vantrel::fake::cocoa::system().calls.push_back("unhide " + std::to_string(_shown->pid));
    _shown->isHidden = _shown->isHidden && !_shown->obeys;
    return _shown->obeys;
}
- (BOOL)activateWithOptions:(NSUInteger)options {
    auto& mac = vantrel::fake::cocoa::system();
    mac.calls.push_back("activate " + std::to_string(_shown->pid));
    mac.isActive = false;
    mac.frontmost = _shown;
    return YES;
}
@end

@implementation NSWorkspaceOpenConfiguration
@synthesize activates = _activates;
@synthesize addsToRecentItems = _addsToRecentItems;
+ (NSWorkspaceOpenConfiguration*)configuration {
    NSWorkspaceOpenConfiguration* const made = [[NSWorkspaceOpenConfiguration new] autorelease];
    made.activates = YES;
    made.addsToRecentItems = YES;
    return made;
}
@end

const NSNotificationName NSWorkspaceDidLaunchApplicationNotification =
    @"NSWorkspaceDidLaunchApplicationNotification";
const NSNotificationName NSWorkspaceActiveSpaceDidChangeNotification =
    @"NSWorkspaceActiveSpaceDidChangeNotification";
const NSNotificationName NSWorkspaceWillSleepNotification = @"NSWorkspaceWillSleepNotification";
const NSNotificationName NSWorkspaceDidWakeNotification = @"NSWorkspaceDidWakeNotification";
const NSNotificationName NSWorkspaceScreensDidSleepNotification = @"NSWorkspaceScreensDidSleepNotification";
const NSNotificationName NSWorkspaceScreensDidWakeNotification = @"NSWorkspaceScreensDidWakeNotification";
const NSNotificationName NSWorkspaceSessionDidBecomeActiveNotification =
    @"NSWorkspaceSessionDidBecomeActiveNotification";
const NSNotificationName NSWorkspaceSessionDidResignActiveNotification =
    @"NSWorkspaceSessionDidResignActiveNotification";
NSString* const NSWorkspaceApplicationKey = @"NSWorkspaceApplicationKey";

// The workspace has its own notification centre.
@interface FakeWorkspaceCenter : NSNotificationCenter
@end

@implementation FakeWorkspaceCenter
@end

namespace {

Screen* shownBy(NSScreen* screen) {
    auto& screens = vantrel::fake::cocoa::system().screens;
    const auto found = std::ranges::find(screens, screen->_shown.number, &Screen::number);
    return found == screens.end() ? nullptr : &*found;
}

NSRunningApplication* running(const std::shared_ptr<Application>& application) {
    NSRunningApplication* const made = [[NSRunningApplication new] autorelease];
    made->_shown = application;
    return made;
}

} // namespace

@implementation NSWorkspace
+ (NSWorkspace*)sharedWorkspace {
    return shared(self);
}
- (NSNotificationCenter*)notificationCenter {
    return shared([FakeWorkspaceCenter class]);
}
- (NSArray*)runningApplications {
    std::vector<id> made;
    for (const auto& application : vantrel::fake::cocoa::system().applications) {
        made.push_back(running(application));
    }
    return makeArray(made);
}
- (NSRunningApplication*)frontmostApplication {
    const auto& frontmost = vantrel::fake::cocoa::system().frontmost;
    return frontmost ? running(frontmost) : nil;
}
- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier {
    const auto& installed = vantrel::fake::cocoa::system().installed;
    const auto found = installed.find(std::string(text(bundleIdentifier)));
    return found == installed.end() ? nil : [NSURL fileURLWithPath:make(found->second.path)];
}
- (NSImage*)iconForFile:(NSString*)path {
    const auto& installed = vantrel::fake::cocoa::system().installed;
    const auto found = std::ranges::find(installed, std::string(text(path)),
                                         [](const auto& each) { return each.second.path; });
    return makeImage(found != installed.end() && found->second.hasIcon ? found->second.name : "");
}
- (void)openApplicationAtURL:(NSURL*)url
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^)(NSRunningApplication*, NSError*))handler {
    vantrel::fake::cocoa::system().calls.push_back("launch " + std::string(text(url.path)) +
                                                   " activates=" + (configuration.activates ? "1" : "0"));
    for (const auto& [identifier, application] : vantrel::fake::cocoa::system().installed) {
        if (application.path == text(url.path) && !application.starts) {
            [NSOperationQueue.mainQueue addOperationWithBlock:^{
              handler(nil, makeError(256, "The application can’t be opened."));
            }];
            return;
        }
    }
    [NSOperationQueue.mainQueue addOperationWithBlock:^{
      handler(running(std::make_shared<Application>()), nil);
    }];
}
- (BOOL)openURL:(NSURL*)url {
    vantrel::fake::cocoa::system().calls.push_back("open " + std::string(text(url.absoluteString)));
    return YES;
}
- (BOOL)accessibilityDisplayShouldReduceMotion {
    return vantrel::fake::cocoa::system().reducesMotion;
}
- (NSURL*)desktopImageURLForScreen:(NSScreen*)screen {
    const Screen* const shown = shownBy(screen);
    return shown != nullptr && shown->picture ? makeURL(*shown->picture) : nil;
}
- (NSDictionary*)desktopImageOptionsForScreen:(NSScreen*)screen {
    return shownBy(screen) != nullptr ? makeDictionary({{@"scaling", [NSNumber numberWithInt:3]}}) : nil;
}
- (BOOL)setDesktopImageURL:(NSURL*)url
                 forScreen:(NSScreen*)screen
                   options:(NSDictionary*)options
                     error:(NSError**)error {
    Screen* const shown = shownBy(screen);
    vantrel::fake::cocoa::system().calls.push_back("picture " + std::string(text(url.absoluteString)) +
                                                   " options " + std::to_string(options.count));
    if (shown == nullptr || !shown->acceptsPictures) {
        if (error != nullptr) {
            *error = makeError(260, "The file doesn’t exist.");
        }
        return NO;
    }
    shown->picture = text(url.absoluteString);
    return YES;
}
@end

namespace vantrel::fake::cocoa {

void deliver(NSNotificationCenter* center, NSNotification* notification);

void post(Center center, const std::string& name, const std::shared_ptr<Application>& application) {
    @autoreleasepool {
        NSDictionary* const userInfo =
            application ? makeDictionary({{NSWorkspaceApplicationKey, running(application)}}) : nil;
        NSNotificationCenter* const posted = center == Center::workspace
                                                 ? NSWorkspace.sharedWorkspace.notificationCenter
                                             : center == Center::program ? NSNotificationCenter.defaultCenter
                                                                         : nil;
        if (posted == nil) {
            deliverDistributed(name, !system().isActive);
            return;
        }
        deliver(posted, makeNotification(make(name), userInfo));
    }
}

} // namespace vantrel::fake::cocoa

// Fake program environment: bundle, files, time zone, application object, updater, login item.
#import "tests/macos/fake/cocoa/Cocoa.h"

#import <AppKit/AppKit.h>
#import <ServiceManagement/ServiceManagement.h>

#include "VantrelCore/model/TimeZone.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <sys/sysctl.h>

using namespace vantrel::fake::cocoa;

namespace {

id fakeBundleVersion() {
    return vantrel::fake::cocoa::system().isVersionNumber ? static_cast<id>([NSNumber numberWithInt:7])
                                                          : @"7.1";
}

} // namespace

extern "C" void fakeAutoreleaseAnObject() {
    [[NSObject new] autorelease];
}

int sysctlbyname(const char* name, void* value, size_t* size, void* /*newValue*/, size_t /*newSize*/) {
    const auto& model = vantrel::fake::cocoa::system().hardwareModel;
    if (std::strcmp(name, "hw.model") != 0 || !model) {
        return -1;
    }
    if (value != nullptr) {
        std::memcpy(value, model->c_str(), std::min(*size, model->size() + 1));
    }
    *size = model->size() + 1;
    return 0;
}

@implementation NSTimeZone {
    std::string _name;
}
static std::string knownZone;
+ (void)resetSystemTimeZone {
    knownZone.clear();
}
+ (NSTimeZone*)systemTimeZone {
    // Cached until it is reset.
    if (knownZone.empty()) {
        knownZone = vantrel::fake::cocoa::system().timeZone;
    }
    NSTimeZone* const made = [[NSTimeZone new] autorelease];
    made->_name = knownZone;
    return made;
}
- (NSInteger)secondsFromGMTForDate:(NSDate*)date {
    const auto zone = vantrel::TimeZone::posix(_name).value();
    return zone
        .offset(std::chrono::sys_seconds(std::chrono::seconds(std::llround(date.timeIntervalSince1970))))
        .count();
}
@end

@implementation NSBundle {
    std::string _path;
}
+ (NSBundle*)mainBundle {
    return shared(self);
}
+ (instancetype)bundleWithPath:(NSString*)path {
    if (text(path) != vantrel::fake::cocoa::system().frameworksPath + "/Sparkle.framework") {
        return nil;
    }
    NSBundle* const made = [[NSBundle new] autorelease];
    made->_path = text(path);
    return made;
}
- (NSString*)bundleIdentifier {
    const std::string& identifier = vantrel::fake::cocoa::system().bundleID;
    return identifier.empty() ? nil : make(identifier);
}
- (NSString*)privateFrameworksPath {
    return make(vantrel::fake::cocoa::system().frameworksPath);
}
- (BOOL)load {
    vantrel::fake::cocoa::system().calls.push_back("load " + _path);
    return YES;
}
- (id)objectForInfoDictionaryKey:(NSString*)key {
    if ([key isEqualToString:@"CFBundleVersion"]) {
        return fakeBundleVersion();
    }
    const auto& information = vantrel::fake::cocoa::system().information;
    const auto found = information.find(std::string(text(key)));
    return found != information.end() ? make(found->second) : nil;
}
@end

@implementation NSUserDefaults
+ (NSUserDefaults*)standardUserDefaults {
    return shared(self);
}
- (void)registerDefaults:(NSDictionary*)defaults {
    vantrel::fake::cocoa::system().endsOnAnyException =
        [[defaults objectForKey:@"NSApplicationCrashOnExceptions"] unsignedIntValue] != 0;
}
@end

@implementation NSProcessInfo
+ (NSProcessInfo*)processInfo {
    return shared(self);
}
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason {
    ++vantrel::fake::cocoa::system().activities;
    return [[NSObject new] autorelease];
}
- (void)endActivity:(id<NSObject>)activity {
    --vantrel::fake::cocoa::system().activities;
}
@end

@implementation NSFileManager
+ (NSFileManager*)defaultManager {
    return shared(self);
}
- (NSString*)displayNameAtPath:(NSString*)path {
    for (const auto& [identifier, application] : vantrel::fake::cocoa::system().installed) {
        if (application.path == text(path)) {
            return make(application.name);
        }
    }
    return path;
}
- (NSURL*)URLForDirectory:(NSSearchPathDirectory)directory
                 inDomain:(NSSearchPathDomainMask)domain
        appropriateForURL:(NSURL*)url
                   create:(BOOL)shouldCreate
                    error:(NSError**)error {
    if (!vantrel::fake::cocoa::system().hasSupportFolder) {
        if (error != nullptr) {
            *error = makeError(513, "You don’t have permission.");
        }
        return nil;
    }
    return [NSURL fileURLWithPath:make(vantrel::fake::cocoa::system().supportFolder)];
}
@end

const NSNotificationName NSApplicationDidFinishLaunchingNotification =
    @"NSApplicationDidFinishLaunchingNotification";

@implementation NSApplication
+ (NSApplication*)sharedApplication {
    return shared(self);
}
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
    vantrel::fake::cocoa::system().calls.push_back("policy " + std::to_string(policy));
    return YES;
}
- (void)activateIgnoringOtherApps:(BOOL)ignoringOthers {
    vantrel::fake::cocoa::system().calls.push_back(ignoringOthers ? "activate, ignoring others" : "activate");
    vantrel::fake::cocoa::system().isActive = true;
    vantrel::fake::cocoa::system().frontmost.reset();
}
- (BOOL)isActive {
    return vantrel::fake::cocoa::system().isActive;
}
- (NSEvent*)currentEvent {
    return shared([NSEvent class]);
}
- (void)yieldActivationToApplication:(NSRunningApplication*)application {
    vantrel::fake::cocoa::system().calls.push_back("yield to " +
                                                   std::to_string(application.processIdentifier));
}
@end

@implementation NSWindow
- (NSUInteger)collectionBehavior {
    return vantrel::fake::cocoa::system().collectionBehavior;
}
- (void)setCollectionBehavior:(NSUInteger)behavior {
    vantrel::fake::cocoa::system().collectionBehavior = behavior;
}
- (NSRect)frame {
    return {{1200, 876}, {30, 24}};
}
@end

@implementation NSView
- (NSWindow*)window {
    return shared([NSWindow class]);
}
@end

std::uintptr_t vantrel::fake::cocoa::view() {
    return reinterpret_cast<std::uintptr_t>(shared([NSView class]));
}

@interface FakeUpdater : NSObject
@end

@implementation FakeUpdater
- (BOOL)automaticallyChecksForUpdates {
    return vantrel::fake::cocoa::system().checksForUpdates;
}
- (void)setAutomaticallyChecksForUpdates:(BOOL)checks {
    vantrel::fake::cocoa::system().checksForUpdates = checks;
}
- (void)checkForUpdates {
    vantrel::fake::cocoa::system().calls.emplace_back("check for updates");
}
@end

// The parts of the standard updater's controller that the program uses.
@interface SPUStandardUpdaterController : NSObject {
    FakeUpdater* _updater;
}
@end

@implementation SPUStandardUpdaterController
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id)updaterDelegate
                     userDriverDelegate:(id)userDriverDelegate {
    _updater = [FakeUpdater new];
    vantrel::fake::cocoa::system().calls.emplace_back(startUpdater ? "updater, started" : "updater");
    return self;
}
- (void)dealloc {
    [_updater release];
    [super dealloc];
}
- (void)startUpdater {
    vantrel::fake::cocoa::system().calls.emplace_back("updater, started");
}
- (FakeUpdater*)updater {
    return _updater;
}
@end

@implementation SMAppService
+ (SMAppService*)mainAppService {
    return shared(self);
}
- (SMAppServiceStatus)status {
    return static_cast<SMAppServiceStatus>(vantrel::fake::cocoa::system().loginItem);
}
- (BOOL)become:(SMAppServiceStatus)status error:(NSError**)error {
    auto& mac = vantrel::fake::cocoa::system();
    mac.calls.push_back(status == SMAppServiceStatusNotRegistered ? "unregister" : "register");
    if (!mac.acceptsLoginItems) {
        if (error != nullptr) {
            *error = makeError(1, "Operation not permitted");
        }
        return NO;
    }
    mac.loginItem = status;
    return YES;
}
- (BOOL)registerAndReturnError:(NSError**)error {
    return [self become:vantrel::fake::cocoa::system().approvesLoginItems ? SMAppServiceStatusEnabled
                                                                          : SMAppServiceStatusRequiresApproval
                  error:error];
}
- (BOOL)unregisterAndReturnError:(NSError**)error {
    return [self become:SMAppServiceStatusNotRegistered error:error];
}
@end

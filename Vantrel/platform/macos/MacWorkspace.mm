#include "Vantrel/platform/macos/MacWorkspace.h"

#include "Vantrel/platform/macos/ApplicationFacts.h"
#include "Vantrel/platform/macos/FoundationText.h"
#include "Vantrel/platform/macos/NotificationObserver.h"

#include <map>
#include <unistd.h>
#include <utility>
#include <vector>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel {

struct MacWorkspace::State {
    Log log;
    // The applications that hide() hid, by bundle identifier.
    std::map<std::string, std::vector<NSRunningApplication*>> hidden;
    std::unique_ptr<NotificationObserver> launches;
};

namespace {

NSURL* urlOf(const std::string& bundleID) {
    NSString* const identifier = FoundationText::make(bundleID);
    return identifier != nil ? [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:identifier]
                             : nil;
}

} // namespace

MacWorkspace::MacWorkspace(Log log) : m_state(std::make_unique<State>()) {
    m_state->log = std::move(log);
}

MacWorkspace::~MacWorkspace() = default;

std::optional<std::string> MacWorkspace::applicationName(const std::string& bundleID) {
    @autoreleasepool {
        NSString* const path = urlOf(bundleID).path;
        if (path == nil) {
            return std::nullopt;
        }
        NSString* name = [NSFileManager.defaultManager displayNameAtPath:path];
        // The Finder may be set to show every extension.
        if ([name.pathExtension isEqualToString:@"app"]) {
            name = name.stringByDeletingPathExtension;
        }
        return FoundationText::utf8(name);
    }
}

bool MacWorkspace::launch(const std::string& bundleID) {
    @autoreleasepool {
        NSURL* const url = urlOf(bundleID);
        if (url == nil) {
            return false;
        }
        NSWorkspaceOpenConfiguration* const configuration = NSWorkspaceOpenConfiguration.configuration;
        configuration.activates = NO;
        configuration.addsToRecentItems = NO;
        [NSWorkspace.sharedWorkspace
            openApplicationAtURL:url
                   configuration:configuration
               completionHandler:[log = m_state->log, bundleID](NSRunningApplication* /*application*/,
                                                                NSError* error) {
                   if (error != nil) {
                       log("launch: " + bundleID + " did not start: " +
                           FoundationText::utf8(error.localizedDescription).value_or("no reason given"));
                   }
               }];
        return true;
    }
}

bool MacWorkspace::hide(const std::string& bundleID) {
    @autoreleasepool {
        NSString* const identifier = FoundationText::make(bundleID);
        if (identifier == nil) {
            return false;
        }
        auto& hidden = m_state->hidden[bundleID];
        std::erase_if(hidden, [](NSRunningApplication* app) { return app.terminated || !app.hidden; });
        bool isAnyAsked = false;
        for (NSRunningApplication* const app in
             [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier]) {
            if (!app.hidden && [app hide]) {
                hidden.push_back(app);
                isAnyAsked = true;
            }
        }
        return isAnyAsked;
    }
}

bool MacWorkspace::unhide(const std::string& bundleID) {
    @autoreleasepool {
        const auto hidden = m_state->hidden.extract(bundleID);
        bool isAnyAsked = false;
        if (!hidden.empty()) {
            for (NSRunningApplication* const& app : hidden.mapped()) {
                if (!app.terminated && app.hidden && [app unhide]) {
                    isAnyAsked = true;
                }
            }
        }
        return isAnyAsked;
    }
}

void MacWorkspace::setLaunchHandler(std::function<void(const RunningApp&)> handler) {
    @autoreleasepool {
        m_state->launches.reset();
        if (!handler) {
            return;
        }
        m_state->launches = std::make_unique<NotificationObserver>(
            NSWorkspace.sharedWorkspace.notificationCenter, NSWorkspaceDidLaunchApplicationNotification,
            [handler = std::move(handler)](NSNotification* notification) {
                const id application = notification.userInfo[NSWorkspaceApplicationKey];
                if (![application isKindOfClass:[NSRunningApplication class]]) {
                    return;
                }
                const RunningApp started = RunningApplications::facts(application);
                if (started.pid != getpid()) {
                    handler(started);
                }
            });
    }
}

} // namespace vantrel

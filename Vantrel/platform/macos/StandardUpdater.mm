#include "Vantrel/platform/macos/StandardUpdater.h"

#include "Vantrel/platform/macos/LaunchNotice.h"

#import <Foundation/Foundation.h>

#include <optional>
#include <utility>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

// Declares the parts of the framework that we use, so that builds do not need it.
@protocol VantrelUpdater <NSObject>
@property BOOL automaticallyChecksForUpdates;
- (void)checkForUpdates;
@end

@protocol VantrelUpdaterController <NSObject>
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id)updaterDelegate
                     userDriverDelegate:(id)userDriverDelegate;
- (void)startUpdater;
@property(readonly) id<VantrelUpdater> updater;
@end

namespace vantrel {

namespace {

bool states(NSString* key) {
    const id value = [NSBundle.mainBundle objectForInfoDictionaryKey:key];
    return [value isKindOfClass:[NSString class]] && [value length] > 0;
}

} // namespace

struct StandardUpdater::State {
    id<VantrelUpdaterController> controller = nil;
    std::optional<LaunchNotice> launch;
};

std::unique_ptr<StandardUpdater> StandardUpdater::start() {
    @autoreleasepool {
        NSString* const frameworks = NSBundle.mainBundle.privateFrameworksPath;
        [[NSBundle bundleWithPath:[frameworks stringByAppendingPathComponent:@"Sparkle.framework"]] load];
        const Class kind = NSClassFromString(@"SPUStandardUpdaterController");
        // Without the address and the key, the updater would show an alert at every start.
        if (kind == nil || !states(@"SUFeedURL") || !states(@"SUPublicEDKey")) {
            return nullptr;
        }
        auto state = std::make_unique<State>();
        state->controller =
            [static_cast<id<VantrelUpdaterController>>([kind alloc]) initWithStartingUpdater:NO
                                                                             updaterDelegate:nil
                                                                          userDriverDelegate:nil];
        if (state->controller == nil) {
            return nullptr;
        }
        state->launch.emplace([controller = state->controller] {
            @autoreleasepool {
                [controller startUpdater];
            }
        });
        return std::unique_ptr<StandardUpdater>(new StandardUpdater(std::move(state)));
    }
}

StandardUpdater::StandardUpdater(std::unique_ptr<State> state) : m_state(std::move(state)) {}

StandardUpdater::~StandardUpdater() = default;

void StandardUpdater::checkForUpdates() {
    @autoreleasepool {
        [m_state->controller.updater checkForUpdates];
    }
}

bool StandardUpdater::automaticallyChecksForUpdates() const {
    @autoreleasepool {
        return m_state->controller.updater.automaticallyChecksForUpdates;
    }
}

void StandardUpdater::setAutomaticallyChecksForUpdates(bool checks) {
    @autoreleasepool {
        m_state->controller.updater.automaticallyChecksForUpdates = checks;
    }
}

} // namespace vantrel

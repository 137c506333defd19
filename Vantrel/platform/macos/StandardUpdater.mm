#include "Vantrel/platform/macos/StandardUpdater.h"

#import <Foundation/Foundation.h>

#include <utility>

// Declares the parts of the framework that we use, so that builds do not need it.
@protocol VantrelUpdater <NSObject>
@property BOOL automaticallyChecksForUpdates;
- (void)checkForUpdates;
@end

@protocol VantrelUpdaterController <NSObject>
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id)updaterDelegate
                     userDriverDelegate:(id)userDriverDelegate;
@property(readonly) id<VantrelUpdater> updater;
@end

namespace vantrel {

struct StandardUpdater::State {
    id<VantrelUpdaterController> controller = nil;
};

std::unique_ptr<StandardUpdater> StandardUpdater::start() {
    @autoreleasepool {
        NSString* const frameworks = NSBundle.mainBundle.privateFrameworksPath;
        [[NSBundle bundleWithPath:[frameworks stringByAppendingPathComponent:@"Sparkle.framework"]] load];
        const Class kind = NSClassFromString(@"SPUStandardUpdaterController");
        if (kind == nil) {
            return nullptr;
        }
        auto state = std::make_unique<State>();
        state->controller =
            [static_cast<id<VantrelUpdaterController>>([kind alloc]) initWithStartingUpdater:YES
                                                                             updaterDelegate:nil
                                                                          userDriverDelegate:nil];
        if (state->controller == nil) {
            return nullptr;
        }
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

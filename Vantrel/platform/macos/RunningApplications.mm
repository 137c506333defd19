#include "Vantrel/platform/macos/RunningApplications.h"

#include "Vantrel/platform/macos/ApplicationFacts.h"
#include "Vantrel/platform/macos/FoundationText.h"

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel::RunningApplications {

namespace {

ActivationPolicy policy(NSApplicationActivationPolicy policy) {
    switch (policy) {
    case NSApplicationActivationPolicyRegular:
        return ActivationPolicy::regular;
    case NSApplicationActivationPolicyAccessory:
        return ActivationPolicy::accessory;
    case NSApplicationActivationPolicyProhibited:
        break;
    }
    return ActivationPolicy::prohibited;
}

} // namespace

RunningApp facts(NSRunningApplication* application) {
    return {.pid = application.processIdentifier,
            .policy = policy(application.activationPolicy),
            .bundleID = FoundationText::utf8(application.bundleIdentifier),
            .localizedName = FoundationText::utf8(application.localizedName)};
}

std::vector<RunningApp> read() {
    std::vector<RunningApp> applications;
    @autoreleasepool {
        for (NSRunningApplication* const application in NSWorkspace.sharedWorkspace.runningApplications) {
            applications.push_back(facts(application));
        }
    }
    return applications;
}

} // namespace vantrel::RunningApplications

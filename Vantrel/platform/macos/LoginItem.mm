#include "Vantrel/platform/macos/LoginItem.h"

#include "Vantrel/platform/macos/FoundationText.h"

#import <ServiceManagement/ServiceManagement.h>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel::LoginItem {

namespace {

// The user has switched it off or not allowed it yet.
constexpr const char* needsApproval =
    "launch at login: allow Vantrel in System Settings, General, Login Items";

} // namespace

std::string setLaunchAtLogin(bool launches) {
    @autoreleasepool {
        SMAppService* const service = SMAppService.mainAppService;
        const bool isRegistered = service.status == SMAppServiceStatusEnabled ||
                                  service.status == SMAppServiceStatusRequiresApproval;
        if (launches != isRegistered) {
            NSError* error = nil;
            const bool isDone = launches ? [service registerAndReturnError:&error]
                                         : [service unregisterAndReturnError:&error];
            if (!isDone) {
                return "launch at login: " +
                       FoundationText::utf8(error.localizedDescription).value_or("no reason given");
            }
        }
        return launches && service.status == SMAppServiceStatusRequiresApproval ? needsApproval : "";
    }
}

} // namespace vantrel::LoginItem

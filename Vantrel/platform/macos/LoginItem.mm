#include "Vantrel/platform/macos/LoginItem.h"

#include "Vantrel/platform/macos/FoundationText.h"

#import <ServiceManagement/ServiceManagement.h>

namespace vantrel::LoginItem {

namespace {

// The user has switched it off, or has not yet allowed it.
constexpr const char* needsApproval =
    "launch at login: it waits to be allowed in System Settings, General, Login Items";

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

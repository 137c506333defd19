#include "Vantrel/platform/macos/DisplayRegistry.h"

#include "Vantrel/platform/macos/CFText.h"
#include "Vantrel/platform/macos/RegistryObject.h"

#include <array>
#include <utility>

namespace vantrel::DisplayRegistry {

namespace {

// The services that a display may be attached to, in query order.
constexpr std::array portClasses{"AppleDCPDPTXRemotePortUFP", "AppleATCDPAltModePort", "AppleATCDPHDMIPort",
                                 "AppleATCDPINAdapterPort"};

std::optional<EdidHint> hintOf(io_service_t service) {
    const auto property = CFRef<CFTypeRef>::adopt(
        IORegistryEntryCreateCFProperty(service, CFSTR("DisplayHints"), kCFAllocatorDefault, 0));
    const CFDictionaryRef hints = cfCast<CFDictionaryRef>(property.get());
    if (!hints) {
        return std::nullopt;
    }
    return EdidHint{.productName = CFText::utf8Of(CFDictionaryGetValue(hints, CFSTR("ProductName"))),
                    .edidUUID = CFText::utf8Of(CFDictionaryGetValue(hints, CFSTR("EDID UUID")))};
}

void addHints(const char* portClass, std::vector<EdidHint>& hints) {
    auto matching = CFRef<CFDictionaryRef>::adopt(IOServiceMatching(portClass));
    if (!matching) {
        return;
    }
    io_iterator_t found = IO_OBJECT_NULL;
    // Consumes the reference even if it fails.
    if (IOServiceGetMatchingServices(kIOMainPortDefault, matching.release(), &found) != KERN_SUCCESS) {
        return;
    }
    const RegistryObject services(found);
    while (const RegistryObject service{IOIteratorNext(services.get())}) {
        if (auto hint = hintOf(service.get())) {
            hints.push_back(std::move(*hint));
        }
    }
}

} // namespace

std::vector<EdidHint> edidHints() {
    std::vector<EdidHint> hints;
    for (const char* const portClass : portClasses) {
        addHints(portClass, hints);
    }
    return hints;
}

} // namespace vantrel::DisplayRegistry

#include "Vantrel/platform/macos/MacMachineIdentity.h"

#include "Vantrel/platform/macos/CFText.h"
#include "Vantrel/platform/macos/RegistryObject.h"

namespace vantrel {

std::optional<std::string> MacMachineIdentity::machineID() {
    auto matching = CFRef<CFDictionaryRef>::adopt(IOServiceMatching("IOPlatformExpertDevice"));
    io_iterator_t found = IO_OBJECT_NULL;
    // Consumes the reference even if it fails.
    if (!matching ||
        IOServiceGetMatchingServices(kIOMainPortDefault, matching.release(), &found) != KERN_SUCCESS) {
        return std::nullopt;
    }
    const RegistryObject platforms(found);
    const RegistryObject platform(IOIteratorNext(platforms.get()));
    if (!platform) {
        return std::nullopt;
    }
    const auto uuid = CFRef<CFTypeRef>::adopt(
        IORegistryEntryCreateCFProperty(platform.get(), CFSTR("IOPlatformUUID"), kCFAllocatorDefault, 0));
    return CFText::utf8Of(uuid.get());
}

} // namespace vantrel

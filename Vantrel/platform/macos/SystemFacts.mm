#include "Vantrel/platform/macos/SystemFacts.h"

#include "Vantrel/platform/macos/FoundationText.h"

#include <sys/sysctl.h>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel::SystemFacts {

namespace {

constexpr const char* unknown = "unknown";

} // namespace

std::string hardwareModel() {
    std::size_t size = 0;
    if (sysctlbyname("hw.model", nullptr, &size, nullptr, 0) != 0 || size == 0) {
        return unknown;
    }
    std::string model(size, '\0');
    if (sysctlbyname("hw.model", model.data(), &size, nullptr, 0) != 0) {
        return unknown;
    }
    // The size includes the terminating null.
    model.resize(model.find('\0') != std::string::npos ? model.find('\0') : size);
    return model;
}

std::string programBuild() {
    @autoreleasepool {
        const id build = [NSBundle.mainBundle objectForInfoDictionaryKey:@"CFBundleVersion"];
        return [build isKindOfClass:[NSString class]] ? FoundationText::utf8(build).value_or(unknown)
                                                      : unknown;
    }
}

} // namespace vantrel::SystemFacts

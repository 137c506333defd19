#include "Vantrel/platform/macos/CFText.h"

namespace vantrel::CFText {

std::optional<std::string> utf8(CFStringRef text) {
    const CFIndex most =
        CFStringGetMaximumSizeForEncoding(CFStringGetLength(text), kCFStringEncodingUTF8) + 1;
    std::string buffer(static_cast<std::size_t>(most), '\0');
    if (!CFStringGetCString(text, buffer.data(), most, kCFStringEncodingUTF8)) {
        return std::nullopt;
    }
    buffer.resize(buffer.find('\0'));
    return buffer;
}

std::optional<std::string> utf8Of(CFTypeRef object) {
    const CFStringRef text = cfCast<CFStringRef>(object);
    return text ? utf8(text) : std::nullopt;
}

CFRef<CFStringRef> make(std::string_view utf8) {
    return CFRef<CFStringRef>::adopt(
        CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(utf8.data()),
                                static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8, false));
}

} // namespace vantrel::CFText

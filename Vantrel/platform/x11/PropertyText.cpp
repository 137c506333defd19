#include "Vantrel/platform/x11/PropertyText.h"

#include <glib.h>
#include <memory>

namespace vantrel::PropertyText {

namespace {

using GText = std::unique_ptr<char, decltype(&g_free)>;

std::string untilNul(std::string_view bytes) {
    return std::string(bytes.substr(0, bytes.find('\0')));
}

// The number of trailing bytes that belong to a truncated character.
std::size_t unfinishedBytes(std::string_view bytes) {
    constexpr unsigned char continuationBits = 0xc0;
    constexpr unsigned char continuation = 0x80;
    for (std::size_t back = 1; back <= 3 && back <= bytes.size(); ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if ((byte & continuationBits) == continuation) {
            continue;
        }
        const std::size_t needed = byte >= 0xf0 ? 4 : byte >= 0xe0 ? 3 : byte >= 0xc2 ? 2 : 1;
        return needed > back ? back : 0;
    }
    return 0;
}

} // namespace

std::string decode(std::string_view bytes, Encoding encoding) {
    std::string text = untilNul(bytes);
    if (g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) != 0) {
        return text;
    }
    if (encoding == Encoding::latin1) {
        const GText converted(g_convert(text.data(), static_cast<gssize>(text.size()), "UTF-8", "ISO-8859-1",
                                        nullptr, nullptr, nullptr),
                              &g_free);
        if (converted) {
            return converted.get();
        }
    }
    text.resize(text.size() - unfinishedBytes(text));
    const GText valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), &g_free);
    return valid.get();
}

std::pair<std::string, std::string> decodeClass(std::string_view bytes) {
    const auto end = bytes.find('\0');
    const auto rest = end == std::string_view::npos ? std::string_view() : bytes.substr(end + 1);
    return {decode(bytes.substr(0, end), Encoding::latin1), decode(rest, Encoding::latin1)};
}

} // namespace vantrel::PropertyText

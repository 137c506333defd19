#include "Vantrel/platform/x11/PropertyValues.h"

#include "Vantrel/platform/x11/PropertyText.h"

namespace vantrel::PropertyValues {

std::span<const std::uint32_t> numbers(const Reply& reply, xcb_atom_t type) {
    constexpr std::uint8_t wordFormat = 32;
    if (!reply || reply->type != type || reply->format != wordFormat) {
        return {};
    }
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())), reply->value_len};
}

std::optional<std::uint32_t> number(const Reply& reply, xcb_atom_t type) {
    const auto values = numbers(reply, type);
    return values.empty() ? std::nullopt : std::optional(values.front());
}

std::string_view bytes(const Reply& reply) {
    constexpr std::uint8_t byteFormat = 8;
    if (!reply || reply->format != byteFormat) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

std::optional<std::string> text(const Reply& reply, const X11Atoms& atoms) {
    if (!reply || reply->type == XCB_ATOM_NONE) {
        return std::nullopt;
    }
    const bool isUtf8 = reply->type == atoms.utf8String;
    return PropertyText::decode(bytes(reply),
                                isUtf8 ? PropertyText::Encoding::utf8 : PropertyText::Encoding::latin1);
}

} // namespace vantrel::PropertyValues

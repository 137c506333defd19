// Decodes property replies. Programs may write any type, format and length.
#pragma once

#include "Vantrel/platform/x11/X11Atoms.h"
#include "Vantrel/platform/x11/XcbReply.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <xcb/xcb.h>

namespace vantrel::PropertyValues {

using Reply = XcbReply<xcb_get_property_reply_t>;

// The 32-bit values of a property. Empty if the property is missing or has another type. The span is valid as
// long as the reply.
[[nodiscard]] std::span<const std::uint32_t> numbers(const Reply& reply, xcb_atom_t type);

[[nodiscard]] std::optional<std::uint32_t> number(const Reply& reply, xcb_atom_t type);

// The bytes of a text property. Empty if the property is missing or its format is not 8.
[[nodiscard]] std::string_view bytes(const Reply& reply);

// Returns none if the property is missing.
[[nodiscard]] std::optional<std::string> text(const Reply& reply, const X11Atoms& atoms);

} // namespace vantrel::PropertyValues

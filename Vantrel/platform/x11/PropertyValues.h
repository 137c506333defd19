// Decoding property replies, whose type, format and length are whatever a program chose to write.
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

// The 32-bit values of a property of the given type; empty for a missing one and for any other type. Valid
// as long as the reply.
[[nodiscard]] std::span<const std::uint32_t> numbers(const Reply& reply, xcb_atom_t type);

[[nodiscard]] std::optional<std::uint32_t> number(const Reply& reply, xcb_atom_t type);

// The bytes of a text property; empty for a missing one and for a format other than 8.
[[nodiscard]] std::string_view bytes(const Reply& reply);

// Absent for a missing property.
[[nodiscard]] std::optional<std::string> text(const Reply& reply, const X11Atoms& atoms);

} // namespace vantrel::PropertyValues

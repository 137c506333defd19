// Texts in window properties, which may hold anything, as valid UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace vantrel::PropertyText {

enum class Encoding : std::uint8_t {
    utf8,
    // STRING by name; many programs put UTF-8 there, so that is tried first.
    latin1,
};

// The text up to the first NUL. Invalid bytes become U+FFFD; a character cut off at the end is dropped.
[[nodiscard]] std::string decode(std::string_view bytes, Encoding encoding);

// The two texts of a WM_CLASS property: instance and class.
[[nodiscard]] std::pair<std::string, std::string> decodeClass(std::string_view bytes);

} // namespace vantrel::PropertyText

// Decodes strings in window properties, which may hold any bytes, to valid UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace vantrel::PropertyText {

enum class Encoding : std::uint8_t {
    utf8,
    // The type STRING. Many programs store UTF-8 in it, so UTF-8 is tried first.
    latin1,
};

// Decodes up to the first NUL. Replaces invalid bytes with U+FFFD and drops a truncated last character.
[[nodiscard]] std::string decode(std::string_view bytes, Encoding encoding);

// The instance and class in a WM_CLASS property.
[[nodiscard]] std::pair<std::string, std::string> decodeClass(std::string_view bytes);

} // namespace vantrel::PropertyText

// Text from outside (window titles, calendar entries, names that users gave) made safe to print: nothing in
// it can steer a terminal, begin a line of its own or turn the order of what is read.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::SafeText {

// One line. Control characters and line separators become blanks, bidirectional controls are left out, and
// bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] std::string line(std::string_view text);

// The same, except that line feeds stay.
[[nodiscard]] std::string lines(std::string_view text);

// A JSON document with every character that is not printable escaped as \uXXXX; it means the same.
[[nodiscard]] std::string json(std::string_view document);

} // namespace vantrel::SafeText

// Text from outside (window titles, calendar entries, user-given names) made safe to print: it cannot control
// a terminal, start a new line or reverse the reading order.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::SafeText {

// One line. Control characters and line separators become spaces, bidirectional controls are removed, and
// invalid UTF-8 becomes U+FFFD.
[[nodiscard]] std::string line(std::string_view text);

// The same, but keeps line feeds.
[[nodiscard]] std::string lines(std::string_view text);

// A JSON document with every non-printable character escaped as \uXXXX; its meaning is unchanged.
[[nodiscard]] std::string json(std::string_view document);

} // namespace vantrel::SafeText

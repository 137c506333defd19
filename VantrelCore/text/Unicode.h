// Text as users see it: characters are grapheme clusters, case follows Unicode's language-independent rules.
// All strings are UTF-8; invalid bytes are tolerated. Safe on any thread.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::Unicode {

[[nodiscard]] bool isAscii(std::string_view text);

[[nodiscard]] std::string lowercased(std::string_view text);

// The end offsets in bytes of the first `limit` user-perceived characters.
[[nodiscard]] std::vector<std::size_t>
characterEnds(std::string_view text, std::size_t limit = std::numeric_limits<std::size_t>::max());

[[nodiscard]] std::size_t characterCount(std::string_view text);

// The first `count` user-perceived characters, or the whole text if it has fewer.
[[nodiscard]] std::string_view prefix(std::string_view text, std::size_t count);

// Without leading and trailing white space and line breaks.
[[nodiscard]] std::string_view trimmed(std::string_view text);

// Replaces every invalid byte sequence by U+FFFD.
[[nodiscard]] std::string validUtf8(std::string_view text);

} // namespace vantrel::Unicode

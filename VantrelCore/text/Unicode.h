// Text as users see it: characters are grapheme clusters, case follows Unicode's rules without a language.
// All texts are UTF-8; invalid bytes do no harm. Safe on any thread.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::Unicode {

[[nodiscard]] bool isAscii(std::string_view text);

[[nodiscard]] std::string lowercased(std::string_view text);

// Where the first `limit` user-perceived characters end, as byte offsets.
[[nodiscard]] std::vector<std::size_t>
characterEnds(std::string_view text, std::size_t limit = std::numeric_limits<std::size_t>::max());

[[nodiscard]] std::size_t characterCount(std::string_view text);

// The first `count` user-perceived characters, or the whole text when it has fewer.
[[nodiscard]] std::string_view prefix(std::string_view text, std::size_t count);

// Without white space and line ends at either end.
[[nodiscard]] std::string_view trimmed(std::string_view text);

// With every invalid byte sequence replaced by U+FFFD.
[[nodiscard]] std::string validUtf8(std::string_view text);

} // namespace vantrel::Unicode

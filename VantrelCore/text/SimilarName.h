// Which of several names a mistyped one was probably meant to be.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace vantrel::SimilarName {

// The known name with the fewest letters added, left out, replaced or swapped, ignoring case; the first of
// equals. None if that is more than a third of the letters.
[[nodiscard]] std::optional<std::string_view> of(std::string_view typed,
                                                 const std::vector<std::string_view>& known);

} // namespace vantrel::SimilarName

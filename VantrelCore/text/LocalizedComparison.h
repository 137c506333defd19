// Orders names for display: by the rules of a language, ignoring case.
#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace vantrel::LocalizedComparison {

// Compares by the rules of `locale` (an ICU name such as "de" or "sv_SE"), empty for the user's locale.
// Strings that differ only in case are equivalent; strings that differ in accents are not. Safe on any
// thread.
[[nodiscard]] std::weak_ordering caseInsensitive(std::string_view a, std::string_view b,
                                                 const std::string& locale = {});

} // namespace vantrel::LocalizedComparison

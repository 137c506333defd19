// Compares release versions: whole numbers with dots between them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace vantrel::SemVer {

// The numbers of a version, at least one; none when a part is empty, is not made of decimal digits alone or
// does not fit 64 bits.
[[nodiscard]] std::optional<std::vector<std::int64_t>> components(std::string_view version);

// True when `a` is newer than `b`. A missing component counts as 0; an invalid version is neither newer nor
// older than any other.
[[nodiscard]] bool isNewer(std::string_view a, std::string_view b);

} // namespace vantrel::SemVer

// Compares release versions: whole numbers separated by dots.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace vantrel::SemVer {

// The numbers of a version, at least one; none if a part is empty, has anything but decimal digits or exceeds
// 64 bits.
[[nodiscard]] std::optional<std::vector<std::int64_t>> components(std::string_view version);

// True when `a` is newer than `b`. A missing component counts as 0. False if either version is invalid.
[[nodiscard]] bool isNewer(std::string_view a, std::string_view b);

} // namespace vantrel::SemVer

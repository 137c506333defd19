// Counters read from files: whatever value a file holds, incrementing it must not overflow.
#pragma once

#include <cstdint>
#include <limits>

namespace vantrel {

// The sum, clamped to the 64-bit range.
[[nodiscard]] constexpr std::int64_t saturatingSum(std::int64_t a, std::int64_t b) {
    using Limits = std::numeric_limits<std::int64_t>;
    if (b > 0 && a > Limits::max() - b) {
        return Limits::max();
    }
    if (b < 0 && a < Limits::min() - b) {
        return Limits::min();
    }
    return a + b;
}

} // namespace vantrel

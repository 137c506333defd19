// Counters that are stored in files: whatever a file holds, counting on neither wraps around nor stops the
// program.
#pragma once

#include <cstdint>
#include <limits>

namespace vantrel {

// The sum, or the end of the 64-bit range that it would cross.
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

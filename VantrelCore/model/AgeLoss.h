// How many of its records a store lost because they were too old.
#pragma once

#include <cstddef>

namespace vantrel {

struct AgeLoss {
    std::size_t held = 0;
    std::size_t dropped = 0;

    // More than half: perhaps not the records are too old, but the clock is wrong.
    [[nodiscard]] bool isMost() const { return dropped * 2 > held; }
};

} // namespace vantrel

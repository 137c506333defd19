// How many records a store dropped because of their age.
#pragma once

#include <cstddef>

namespace vantrel {

struct AgeLoss {
    std::size_t held = 0;
    std::size_t dropped = 0;

    // More than half were dropped: the clock may be wrong rather than the records old.
    [[nodiscard]] bool isMost() const { return dropped * 2 > held; }
};

} // namespace vantrel

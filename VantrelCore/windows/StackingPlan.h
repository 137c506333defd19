// Puts windows into their saved stacking order without raising any other window or giving one the focus.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"

#include <vector>

namespace vantrel::StackingPlan {

// `window` is to be put directly in front of `sibling`.
struct Step {
    WindowID window{};
    WindowID sibling{};

    bool operator==(const Step&) const = default;
};

// Both lists are front to back: `stack` as it is, `wanted` as some of its windows shall be among themselves.
// The front-most window of the stack, which usually has the focus, stays in front.
[[nodiscard]] std::vector<Step> steps(std::vector<WindowID> stack, std::vector<WindowID> wanted);

} // namespace vantrel::StackingPlan

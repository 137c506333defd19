#include "VantrelCore/windows/StackingPlan.h"

#include <algorithm>
#include <cstddef>

namespace vantrel::StackingPlan {

std::vector<Step> steps(std::vector<WindowID> stack, std::vector<WindowID> wanted) {
    std::vector<Step> result;
    const auto place = [&](WindowID window) { return std::ranges::find(stack, window); };
    std::erase_if(wanted,
                  [&](WindowID window) { return place(window) == stack.end() || window == stack.front(); });
    for (std::size_t i = wanted.size(); i-- > 1;) {
        const WindowID sibling = wanted[i];
        const WindowID window = wanted[i - 1];
        if (place(window) > place(sibling)) {
            result.push_back({window, sibling});
            stack.erase(place(window));
            stack.insert(place(sibling), window);
        }
    }
    return result;
}

} // namespace vantrel::StackingPlan

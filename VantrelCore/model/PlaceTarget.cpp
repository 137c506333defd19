#include "VantrelCore/model/PlaceTarget.h"

namespace vantrel {

std::optional<PlaceTarget> PlaceTarget::of(const WindowRecord& saved, const WindowRecord& live) {
    PlaceTarget target{.states = saved.states, .desktop = saved.desktop, .normalFrame = saved.normalFrame};
    // Such a window is not where it belongs without its states.
    const bool isSpecial = saved.states.isStretched() || saved.states.isMinimized;
    if (!isSpecial && target.isReached(live.states, live.desktop)) {
        return std::nullopt;
    }
    return target;
}

bool PlaceTarget::isReached(const PlaceStates& actual,
                            const std::optional<std::int64_t>& actualDesktop) const {
    const bool isOnDesktop = states.isOnAllDesktops
                                 ? actual.isOnAllDesktops
                                 : !desktop || (desktop == actualDesktop && !actual.isOnAllDesktops);
    const bool isMaximizedAlike =
        !states.isMaximized() || (states.isMaximizedHorizontally == actual.isMaximizedHorizontally &&
                                  states.isMaximizedVertically == actual.isMaximizedVertically);
    return isOnDesktop && isMaximizedAlike && states.isMinimized == actual.isMinimized &&
           states.isFullscreen == actual.isFullscreen && (!states.isShaded || actual.isShaded) &&
           (!states.isAbove || actual.isAbove);
}

} // namespace vantrel

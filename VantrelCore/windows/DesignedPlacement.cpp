#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/SlotAnchor.h"

#include <cmath>

namespace vantrel::RestoreEngine {

namespace {

// A slot is filled by a window that has just opened, often while its application still arranges it. The
// first pause is the one that any restored window gets; the second outlasts an opening animation. Only the
// last look may call a size clamped: an earlier one may have met a window on its way.
constexpr double pauses[] = {settleSeconds, 0.25};

void moveInto(const Rect& slot, const AXWindowHandle& handle) {
    handle.setFrameSizeFirst(slot);
    handle.setPosition(slot.origin);
}

bool isClamped(const Rect& frame, const Rect& slot) {
    const bool isInPlace = approxEqual({frame.origin, slot.size}, slot, tolerance);
    return isInPlace && std::abs(frame.width() - slot.width()) > tolerance;
}

// A window that does not fill its slot, or overflows it, still belongs to the slot's place on the desk; but
// none of it may hang over the edge of the usable area, and its title bar last of all.
Rect seatOfClamped(Size windowSize, const Rect& slot, const Rect& usableBounds) {
    const Rect anchored = SlotAnchor::anchor(windowSize, slot);
    return {DisplayGeometry::clamp(anchored, usableBounds).origin, windowSize};
}

} // namespace

DesignedPlacement placeDesigned(const Rect& placement, const AXWindowHandle& handle, const Rect& usableBounds,
                                const std::function<void(double)>& settle) {
    std::optional<Rect> frame;
    for (const double pause : pauses) {
        moveInto(placement, handle);
        settle(pause);
        frame = handle.frame();
        if (frame && approxEqual(*frame, placement, tolerance)) {
            return DesignedPlacement::placed(placement);
        }
    }
    if (!frame || !isClamped(*frame, placement)) {
        return DesignedPlacement::failed();
    }
    const Rect seat = seatOfClamped(frame->size, placement, usableBounds);
    handle.setFrame(seat);
    return DesignedPlacement::placedClampedSize(handle.frame().value_or(seat));
}

} // namespace vantrel::RestoreEngine

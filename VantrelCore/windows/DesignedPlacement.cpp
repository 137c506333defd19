#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/SlotAnchor.h"

#include <cmath>

namespace vantrel::RestoreEngine {

namespace {

// The window in a slot has often just opened and is still being arranged by its application. The first pause
// is that of any restored window; the second outlasts an opening animation. Only the last check may conclude
// that the size is clamped: earlier ones may see the window in motion.
constexpr double pauses[] = {settleSeconds, 0.25};

void moveInto(const Rect& slot, const AXWindowHandle& handle) {
    handle.setFrameSizeFirst(slot);
    handle.setPosition(slot.origin);
}

bool isClamped(const Rect& frame, const Rect& slot) {
    const bool isInPlace = approxEqual({frame.origin, slot.size}, slot, tolerance);
    return isInPlace && std::abs(frame.width() - slot.width()) > tolerance;
}

// A window smaller or larger than its slot is still anchored to it, but clamped to the usable area so that
// nothing hangs over the edge, least of all the title bar.
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

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>

namespace vantrel {

Rect SlotAnchor::anchor(Size windowSize, const Rect& slot) {
    const double leftMargin = std::max(0.0, (slot.width() - windowSize.width) / 2);
    const double topMargin = std::max(0.0, (slot.height() - windowSize.height) / 2);
    return {{slot.minX() + leftMargin, slot.minY() + topMargin}, windowSize};
}

namespace RestoreEngine {

namespace {

// A slot is filled by a window that has just opened, often while its application is still arranging it. The
// first pause is the one that any restored window gets; the second outlasts an opening animation. Only the
// last look may call a size clamped: an earlier one may have met a window on its way.
constexpr double pauses[] = {settleSeconds, 0.25};

bool isClamped(const Rect& frame, const Rect& slot) {
    const bool isInPlace = approxEqual({frame.origin, slot.size}, slot, tolerance);
    return isInPlace && std::abs(frame.width() - slot.width()) > tolerance;
}

// A window that does not fill its slot, or overflows it, still belongs to the slot's place on the desk. None
// of it may hang over the edge of the usable area, least of all its title bar.
Rect seatOfClamped(Size windowSize, const DesignedSlot& slot) {
    const Rect anchored = SlotAnchor::anchor(windowSize, slot.placement);
    return {DisplayGeometry::clamp(anchored, slot.usableBounds).origin, windowSize};
}

void moveInto(const std::vector<DesignedSlot>& slots, const std::vector<std::size_t>& open, Desk& desk,
              const MovePermit& permit) {
    std::vector<WindowOrder> orders;
    std::vector<WindowOrder> shifts;
    for (const std::size_t index : open) {
        const auto& [window, placement, bounds] = slots[index];
        orders.push_back(place(window, placement, Sizes::restore));
        orders.back().sequence = WindowOrder::Sequence::sizeFirst;
        shifts.push_back(place(window, placement, Sizes::leave));
    }
    // The caller reads the frames afterwards.
    static_cast<void>(desk.arrange(orders, permit));
    static_cast<void>(desk.arrange(shifts, permit));
}

std::vector<std::optional<Rect>> framesOf(const std::vector<DesignedSlot>& slots,
                                          const std::vector<std::size_t>& open, Desk& desk) {
    std::vector<WindowID> windows;
    std::ranges::transform(open, std::back_inserter(windows),
                           [&](std::size_t index) { return slots[index].window; });
    std::vector<std::optional<Rect>> frames;
    for (const auto& window : desk.look(windows)) {
        frames.push_back(window ? window->frame : std::nullopt);
    }
    return frames;
}

} // namespace

std::vector<DesignedPlacement> placeDesigned(const std::vector<DesignedSlot>& slots, Desk& desk,
                                             const MovePermit& permit,
                                             const std::function<void(double)>& settle) {
    std::vector<DesignedPlacement> result(slots.size());
    std::vector<std::optional<Rect>> frames(slots.size());
    std::vector<std::size_t> open(slots.size());
    std::iota(open.begin(), open.end(), std::size_t{0});
    for (const double pause : pauses) {
        if (open.empty()) {
            break;
        }
        moveInto(slots, open, desk, permit);
        settle(pause);
        const auto seen = framesOf(slots, open, desk);
        for (std::size_t i = 0; i < open.size(); ++i) {
            frames[open[i]] = seen[i];
        }
        std::erase_if(open, [&](std::size_t index) {
            const Rect& placement = slots[index].placement;
            const bool isFilled = frames[index] && approxEqual(*frames[index], placement, tolerance);
            if (isFilled) {
                result[index] = DesignedPlacement::placed(placement);
            }
            return isFilled;
        });
    }
    std::erase_if(open, [&](std::size_t index) {
        return !frames[index] || !isClamped(*frames[index], slots[index].placement);
    });
    std::vector<WindowOrder> seats;
    for (const std::size_t index : open) {
        seats.push_back(
            place(slots[index].window, seatOfClamped(frames[index]->size, slots[index]), Sizes::restore));
    }
    const auto seated = desk.arrange(seats, permit);
    for (std::size_t i = 0; i < open.size(); ++i) {
        const Rect seat{*seats[i].target.position, *seats[i].target.size};
        result[open[i]] = DesignedPlacement::placedClampedSize(seated[i].frame.value_or(seat));
    }
    return result;
}

} // namespace RestoreEngine

} // namespace vantrel

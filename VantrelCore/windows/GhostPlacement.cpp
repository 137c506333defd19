#include "VantrelCore/windows/GhostPlacement.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/windows/RuleApplication.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

namespace vantrel::GhostPlacement {

namespace {

const DisplayInfo* find(const std::vector<DisplayInfo>& displays, const std::string& uuid) {
    const auto found = std::ranges::find(displays, uuid, &DisplayInfo::uuid);
    return found == displays.end() ? nullptr : &*found;
}

const DisplayInfo* largest(const std::vector<DisplayInfo>& displays) {
    const auto found =
        std::ranges::max_element(displays, {}, [](const DisplayInfo& d) { return d.usableFrame().area(); });
    return found == displays.end() ? nullptr : &*found;
}

// How many frames have their origin within half a step of `origin`.
std::ptrdiff_t standingAt(Point origin, const std::vector<Rect>& frames, double step) {
    return std::ranges::count_if(frames, [&](const Rect& frame) {
        return std::abs(frame.minX() - origin.x) < step / 2 && std::abs(frame.minY() - origin.y) < step / 2;
    });
}

} // namespace

std::optional<DisplayInfo> largestDisplay(const std::vector<DisplayInfo>& displays) {
    const auto* display = largest(displays);
    return display == nullptr ? std::nullopt : std::optional{*display};
}

Rect defaultFrame(const DisplayInfo& display, const std::vector<Rect>& existing, double cascadeStep) {
    const Rect usable = display.usableFrame();
    const Size size = CascadeLayout::defaultSize(usable.size);
    const Size margin{(usable.width() - size.width) / 2, (usable.height() - size.height) / 2};
    const std::size_t positions =
        CascadeLayout::positionCount(std::min(margin.width, margin.height), cascadeStep);

    Rect best{{usable.minX() + margin.width, usable.minY() + margin.height}, size};
    auto bestCount = standingAt(best.origin, existing, cascadeStep);
    Rect next = best;
    for (std::size_t rank = 1; rank < positions && bestCount > 0; ++rank) {
        next.origin = {next.minX() + cascadeStep, next.minY() + cascadeStep};
        const auto count = standingAt(next.origin, existing, cascadeStep);
        if (count < bestCount) {
            best = next;
            bestCount = count;
        }
    }
    return best;
}

WindowRecord onConnectedDisplays(const WindowRecord& slot, const std::vector<DisplayInfo>& savedDisplays,
                                 const std::vector<DisplayInfo>& displays) {
    const auto* own = find(displays, slot.displayUUID);
    const auto* target = own != nullptr ? own : largest(displays);
    if (target == nullptr) {
        return slot;
    }
    const auto* source = find(savedDisplays, slot.displayUUID);
    if (own != nullptr && source != nullptr && own->frame == source->frame) {
        return slot;
    }
    WindowRecord placed = slot;
    placed.displayUUID = target->uuid;
    if (source != nullptr) {
        placed.frame = RuleApplication::translate(slot.frame, source->frame, target->frame);
    }
    placed.frame = DisplayGeometry::clamp(placed.frame, target->usableFrame());
    return placed;
}

} // namespace vantrel::GhostPlacement

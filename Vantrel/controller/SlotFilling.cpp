#include "Vantrel/controller/SlotFilling.h"

#include "VantrelCore/scenes/SceneGhostPlan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace vantrel::SlotFilling {

namespace {

// Ordinary windows come before panels: the index is the window's ID in the plan.
const LiveWindow& windowAt(const Candidates& candidates, std::size_t index) {
    const std::size_t ordinary = candidates.ordinary.size();
    return index < ordinary ? candidates.ordinary[index] : candidates.panels[index - ordinary];
}

SceneGhostPlan::Plan planFor(const std::vector<SceneSlot>& slots, const Candidates& candidates,
                             const std::set<std::string>& runningBundleIDs) {
    std::vector<SceneGhostPlan::Slot> places;
    places.reserve(slots.size());
    for (const SceneSlot& slot : slots) {
        places.push_back({slot.index, slot.record.bundleID, slot.record.frame});
    }
    const std::size_t count = candidates.ordinary.size() + candidates.panels.size();
    std::vector<SceneGhostPlan::LiveWindow> live;
    live.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const WindowRecord& record = windowAt(candidates, i).record;
        live.push_back({.id = static_cast<std::int64_t>(i),
                        .bundleID = record.bundleID,
                        .isStandard = i < candidates.ordinary.size(),
                        .area = record.frame.area(),
                        .zOrder = record.zOrder});
    }
    return SceneGhostPlan::plan(places, live, runningBundleIDs);
}

Rect usableBounds(const WindowRecord& slot, const std::vector<DisplayInfo>& displays) {
    const auto display = std::ranges::find(displays, slot.displayUUID, &DisplayInfo::uuid);
    return display == displays.end() ? slot.frame : display->usableFrame();
}

// A slot and the window that is to fill it.
struct Claim {
    const SceneSlot* slot = nullptr;
    const LiveWindow* window = nullptr;
    bool isPanel = false;
};

// The frame of each window now, or none if it refused to go there.
std::vector<std::optional<Rect>> place(const std::vector<Claim>& claims,
                                       const std::vector<DisplayInfo>& displays, RestoreEngine::Sizes sizes,
                                       Desk& desk, const MovePermit& permit, Clock& clock) {
    std::vector<std::optional<Rect>> frames;
    if (sizes == RestoreEngine::Sizes::leave) {
        std::vector<WindowOrder> orders;
        for (const Claim& claim : claims) {
            orders.push_back(RestoreEngine::place(claim.window->id, claim.slot->record.frame, sizes));
        }
        const auto outcomes = desk.arrange(orders, permit);
        for (std::size_t i = 0; i < claims.size(); ++i) {
            const auto& frame = outcomes[i].frame;
            frames.push_back(
                RestoreEngine::isReached(frame, claims[i].slot->record.frame, sizes) ? frame : std::nullopt);
        }
        return frames;
    }
    std::vector<RestoreEngine::DesignedSlot> slots;
    for (const Claim& claim : claims) {
        slots.push_back({.window = claim.window->id,
                         .placement = claim.slot->record.frame,
                         .usableBounds = usableBounds(claim.slot->record, displays)});
    }
    for (const auto& placement : RestoreEngine::placeDesigned(
             slots, desk, permit, [&clock](double seconds) { clock.sleep(seconds); })) {
        frames.push_back(placement == RestoreEngine::DesignedPlacement::failed()
                             ? std::nullopt
                             : std::optional(placement.rect));
    }
    return frames;
}

} // namespace

Result fill(const std::vector<SceneSlot>& slots, const Candidates& candidates,
            const std::set<std::string>& runningBundleIDs, const std::vector<DisplayInfo>& displays,
            RestoreEngine::Sizes sizes, Desk& desk, const MovePermit& permit, Clock& clock) {
    auto plan = planFor(slots, candidates, runningBundleIDs);
    std::map<std::int64_t, std::size_t> windowOfSlot;
    for (const auto& claim : plan.claims) {
        windowOfSlot[claim.slotIndex] = static_cast<std::size_t>(claim.windowID);
    }
    Result result;
    result.launchBundleIDs = std::move(plan.launchBundleIDs);
    std::vector<Claim> claims;
    for (const SceneSlot& slot : slots) {
        const auto window = windowOfSlot.find(slot.index);
        if (window == windowOfSlot.end()) {
            result.open.push_back(slot);
        } else {
            claims.push_back({.slot = &slot,
                              .window = &windowAt(candidates, window->second),
                              .isPanel = window->second >= candidates.ordinary.size()});
        }
    }
    const auto frames = place(claims, displays, sizes, desk, permit, clock);
    for (std::size_t i = 0; i < claims.size(); ++i) {
        const auto& [slot, window, isPanel] = claims[i];
        if (frames[i]) {
            result.filled.push_back({.slot = *slot,
                                     .title = window->record.title,
                                     .frame = *frames[i],
                                     .window = window->id,
                                     .from = window->record.frame,
                                     .isPanel = isPanel});
        } else {
            result.refused.push_back(*slot);
        }
    }
    return result;
}

} // namespace vantrel::SlotFilling

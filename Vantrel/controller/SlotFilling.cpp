#include "Vantrel/controller/SlotFilling.h"

#include "Vantrel/controller/PerApplication.h"
#include "VantrelCore/scenes/SceneGhostPlan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace vantrel::SlotFilling {

namespace {

// Ordinary windows come before panels: the index is the window's ID in the plan.
const CurrentWindow& windowAt(const Candidates& candidates, std::size_t index) {
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

// The window's new frame; none when it would not move there.
std::optional<Rect> place(const SceneSlot& slot, const AXWindowHandle& handle,
                          const std::vector<DisplayInfo>& displays, RestoreEngine::Sizes sizes,
                          Clock& clock) {
    const Rect& target = slot.record.frame;
    if (sizes == RestoreEngine::Sizes::leave) {
        RestoreEngine::place(target, handle, sizes);
        const auto frame = handle.frame();
        return RestoreEngine::isReached(frame, target, sizes) ? frame : std::nullopt;
    }
    const auto placement = RestoreEngine::placeDesigned(target, handle, usableBounds(slot.record, displays),
                                                        [&clock](double seconds) { clock.sleep(seconds); });
    return placement == RestoreEngine::DesignedPlacement::failed() ? std::nullopt
                                                                   : std::optional(placement.rect);
}

} // namespace

Result fill(const std::vector<SceneSlot>& slots, const Candidates& candidates,
            const std::set<std::string>& runningBundleIDs, const std::vector<DisplayInfo>& displays,
            RestoreEngine::Sizes sizes, Clock& clock, Background& background) {
    auto plan = planFor(slots, candidates, runningBundleIDs);
    std::map<std::int64_t, std::size_t> windowOfSlot;
    for (const auto& claim : plan.claims) {
        windowOfSlot[claim.slotIndex] = static_cast<std::size_t>(claim.windowID);
    }
    Result result;
    result.launchBundleIDs = std::move(plan.launchBundleIDs);
    std::vector<const SceneSlot*> claimed;
    std::vector<RestoreFollowUp::Moved> windows;
    for (const SceneSlot& slot : slots) {
        const auto window = windowOfSlot.find(slot.index);
        if (window == windowOfSlot.end()) {
            result.open.push_back(slot);
            continue;
        }
        windows.push_back({slot.record.bundleID, slot.record.frame,
                           windowAt(candidates, window->second).handle, claimed.size()});
        claimed.push_back(&slot);
    }
    std::vector<std::optional<Rect>> frames(claimed.size());
    PerApplication::forEach(windows, background, [&](std::size_t i) {
        frames[i] = place(*claimed[i], windows[i].handle, displays, sizes, clock);
    });
    for (std::size_t i = 0; i < claimed.size(); ++i) {
        if (frames[i]) {
            const std::size_t window = windowOfSlot.at(claimed[i]->index);
            result.filled.push_back({.slot = *claimed[i],
                                     .title = windowAt(candidates, window).record.title,
                                     .frame = *frames[i],
                                     .handle = windows[i].handle,
                                     .isPanel = window >= candidates.ordinary.size()});
        } else {
            result.refused.push_back(*claimed[i]);
        }
    }
    return result;
}

} // namespace vantrel::SlotFilling

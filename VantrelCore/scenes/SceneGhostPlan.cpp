#include "VantrelCore/scenes/SceneGhostPlan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <unordered_map>

namespace vantrel::SceneGhostPlan {

namespace {

bool isPreferred(const LiveWindow* a, const LiveWindow* b) {
    if (a->isStandard != b->isStandard) {
        return a->isStandard;
    }
    if (a->area != b->area) {
        return a->area > b->area;
    }
    if (a->zOrder != b->zOrder) {
        return a->zOrder < b->zOrder;
    }
    return a->id < b->id;
}

void sortByPreference(std::vector<const LiveWindow*>& windows) {
    if (std::ranges::none_of(windows, [](const LiveWindow* window) { return std::isnan(window->area); })) {
        std::ranges::stable_sort(windows, isPreferred);
        return;
    }
    // With a NaN area the preference is not a strict weak ordering, and std::sort would be undefined.
    // Insertion sort works with any relation: such a window stays behind those before it.
    for (std::size_t next = 1; next < windows.size(); ++next) {
        for (std::size_t at = next; at > 0 && isPreferred(windows[at], windows[at - 1]); --at) {
            std::swap(windows[at], windows[at - 1]);
        }
    }
}

struct Application {
    std::vector<const LiveWindow*> windows;
    std::vector<const Slot*> slots;
};

} // namespace

Plan plan(const std::vector<Slot>& slots, const std::vector<LiveWindow>& live,
          const std::set<std::string>& runningBundleIDs) {
    // Only applications with slots, in order of first appearance.
    std::vector<Application> applications;
    std::unordered_map<std::string_view, std::size_t> indexOf;
    for (const auto& slot : slots) {
        const auto [found, isNew] = indexOf.try_emplace(slot.bundleID, applications.size());
        if (isNew) {
            applications.emplace_back();
        }
        applications[found->second].slots.push_back(&slot);
    }
    for (const auto& window : live) {
        if (const auto found = indexOf.find(window.bundleID); found != indexOf.end()) {
            applications[found->second].windows.push_back(&window);
        }
    }

    Plan result;
    for (auto& [windows, slotsOfApplication] : applications) {
        sortByPreference(windows);
        const std::size_t filled = std::min(windows.size(), slotsOfApplication.size());
        for (std::size_t i = 0; i < filled; ++i) {
            result.claims.push_back({slotsOfApplication[i]->index, windows[i]->id});
        }
        if (filled < slotsOfApplication.size()) {
            const std::string& bundleID = slotsOfApplication.front()->bundleID;
            if (!runningBundleIDs.contains(bundleID)) {
                result.launchBundleIDs.push_back(bundleID);
            }
        }
    }
    std::ranges::stable_sort(result.claims, {}, &Claim::slotIndex);
    return result;
}

std::vector<WindowRecord> solidify(const std::vector<WindowRecord>& records,
                                   const std::set<std::int64_t>& placedSlotIndices,
                                   const std::map<std::int64_t, std::string>& titles,
                                   const std::map<std::int64_t, Rect>& frames) {
    std::vector<WindowRecord> result = records;
    for (const auto index : placedSlotIndices) {
        if (index < 0 || index >= std::ssize(result)) {
            continue;
        }
        auto& record = result[static_cast<std::size_t>(index)];
        if (!record.isGhost.value_or(false)) {
            continue;
        }
        if (const auto title = titles.find(index); title != titles.end() && !title->second.empty()) {
            record.title = title->second;
        }
        if (const auto frame = frames.find(index);
            frame != frames.end() && frame->second.width() > 1.0 && frame->second.height() > 1.0) {
            record.frame = frame->second;
        }
        record.isGhost = false;
    }
    return result;
}

} // namespace vantrel::SceneGhostPlan

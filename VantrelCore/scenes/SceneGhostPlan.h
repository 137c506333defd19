// Which live window fills which place that a scene keeps free, and which applications to launch for the
// places that stay empty.
#pragma once

#include "VantrelCore/model/WindowRecord.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vantrel::SceneGhostPlan {

// A saved window that waits for a live one.
struct Slot {
    // Position of the saved window in the scene's layout.
    std::int64_t index = 0;
    std::string bundleID;
    // Where its window is to stand.
    Rect rect;

    bool operator==(const Slot&) const = default;
};

struct LiveWindow {
    // The caller's; unique within one call.
    std::int64_t id = 0;
    std::string bundleID;
    // A document or main window, not a panel, sheet or dialog.
    bool isStandard = false;
    // Of its current frame, in square points.
    double area = 0;
    // Smaller is nearer the front.
    std::int64_t zOrder = 0;

    bool operator==(const LiveWindow&) const = default;
};

struct Claim {
    std::int64_t slotIndex = 0;
    std::int64_t windowID = 0;

    bool operator==(const Claim&) const = default;
};

struct Plan {
    // By slotIndex.
    std::vector<Claim> claims;
    // Each once, in the order in which their first empty slots were met.
    std::vector<std::string> launchBundleIDs;

    bool operator==(const Plan&) const = default;
};

// Slots of one application are filled in their order, by its windows in order of preference: standard before
// others, larger, nearer the front, smaller id. An application that runs but lacks windows is not launched
// again.
[[nodiscard]] Plan plan(const std::vector<Slot>& slots, const std::vector<LiveWindow>& live,
                        const std::set<std::string>& runningBundleIDs);

// The scene's records with every ghost in `placedSlotIndices` turned into an ordinary window, under the title
// and at the frame of the window that fills it. An empty title, and a frame no wider or no higher than one
// point, leave what was saved. Order and number of the records stay.
[[nodiscard]] std::vector<WindowRecord> solidify(const std::vector<WindowRecord>& records,
                                                 const std::set<std::int64_t>& placedSlotIndices,
                                                 const std::map<std::int64_t, std::string>& titles,
                                                 const std::map<std::int64_t, Rect>& frames);

} // namespace vantrel::SceneGhostPlan

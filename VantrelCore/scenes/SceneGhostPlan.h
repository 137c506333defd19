// Assigns live windows to a scene's ghost slots, and decides which applications to launch for the empty ones.
#pragma once

#include "VantrelCore/model/WindowRecord.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vantrel::SceneGhostPlan {

// A saved window waiting for a live one.
struct Slot {
    // Position of the saved window in the scene's layout.
    std::int64_t index = 0;
    std::string bundleID;
    // The frame for its window.
    Rect rect;

    bool operator==(const Slot&) const = default;
};

struct LiveWindow {
    // Chosen by the caller; unique within one call.
    std::int64_t id = 0;
    std::string bundleID;
    // A document or main window, not a panel, sheet or dialog.
    bool isStandard = false;
    // Area of its current frame, in square points.
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
    // Sorted by slotIndex.
    std::vector<Claim> claims;
    // Each once, in order of first appearance.
    std::vector<std::string> launchBundleIDs;

    bool operator==(const Plan&) const = default;
};

// Fills an application's slots in order with its windows, preferring standard windows, then larger ones, then
// those nearer the front, then smaller ids. Running applications that lack windows are not launched again.
[[nodiscard]] Plan plan(const std::vector<Slot>& slots, const std::vector<LiveWindow>& live,
                        const std::set<std::string>& runningBundleIDs);

// The scene's records with every ghost in `placedSlotIndices` turned into an ordinary window with the title
// and frame of the window that fills it. If the title is empty, or the frame at most one point wide or high,
// the saved one is kept. Number and order of records are unchanged.
[[nodiscard]] std::vector<WindowRecord> solidify(const std::vector<WindowRecord>& records,
                                                 const std::set<std::int64_t>& placedSlotIndices,
                                                 const std::map<std::int64_t, std::string>& titles,
                                                 const std::map<std::int64_t, Rect>& frames);

} // namespace vantrel::SceneGhostPlan

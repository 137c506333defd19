#include "Vantrel/controller/LaunchPlacementPass.h"

#include "VantrelCore/windows/LaunchPlacement.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include <ranges>
#include <set>
#include <utility>

namespace vantrel::LaunchPlacementPass {

namespace {

struct Windows {
    // Windows of the started process, oldest first as far as the stack shows it.
    std::vector<LiveWindow> fresh;
    // Frames of windows of the application's other processes.
    std::vector<Rect> standing;
};

Windows read(const Task& task, Desk& desk) {
    Windows result;
    const auto snapshot = desk.capture({.onlyBundleIDs = std::set{*task.app.bundleID}});
    for (const DeskWindow& window : snapshot.windows | std::views::reverse) {
        const auto frame = VisibleWindows::ordinaryFrame(window);
        if (!frame || window.bundleID != task.app.bundleID) {
            continue;
        }
        if (window.pid != task.app.pid) {
            result.standing.push_back(*frame);
            continue;
        }
        WindowRecord record;
        record.bundleID = window.bundleID;
        record.appName = window.appName;
        record.title = window.title;
        record.frame = *frame;
        result.fresh.push_back({.record = std::move(record), .id = window.id});
    }
    return result;
}

} // namespace

Result run(const Task& task, Desk& desk, const MovePermit& permit, Clock& clock) {
    const Windows windows = read(task, desk);
    std::vector<Rect> frames;
    for (const LiveWindow& window : windows.fresh) {
        frames.push_back(window.record.frame);
    }
    const auto targets = LaunchPlacement::targets(*task.app.bundleID, frames, windows.standing, task.rules,
                                                  task.layout, task.displays);
    Layout places;
    MatchResult matched;
    for (std::size_t i = 0; i < windows.fresh.size(); ++i) {
        if (!targets[i] || RestoreEngine::isReached(frames[i], *targets[i], task.sizes)) {
            continue;
        }
        matched.pairs.push_back({places.windows.size(), i, Pairing::known});
        places.windows.push_back(windows.fresh[i].record);
        places.windows.back().frame = *targets[i];
    }
    const auto report =
        RestoreEngine::restore(places, windows.fresh, matched, {.sizes = task.sizes}, desk, permit, clock);
    return {.windows = frames.size(),
            .moved = report.restoredCount(),
            .failed = report.failedCount(),
            .isAbandoned = permit.isRevoked()};
}

} // namespace vantrel::LaunchPlacementPass

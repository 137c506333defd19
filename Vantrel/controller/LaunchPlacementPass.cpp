#include "Vantrel/controller/LaunchPlacementPass.h"

#include "VantrelCore/windows/LaunchPlacement.h"
#include "VantrelCore/windows/WindowSnapshotter.h"

#include <utility>

namespace vantrel::LaunchPlacementPass {

namespace {

struct Windows {
    // Windows of the started process.
    std::vector<CurrentWindow> fresh;
    // Frames of windows of the application's other processes.
    std::vector<Rect> standing;
};

Windows read(const RunningApp& app, Accessibility& accessibility) {
    Windows result;
    const auto reading = accessibility.beginReading();
    for (const RunningApp& running : reading->runningApps()) {
        if (running.bundleID != app.bundleID) {
            continue;
        }
        for (const WindowReading& window : reading->windows(running)) {
            const auto frame = WindowSnapshotter::ordinaryFrame(window.attributes);
            if (!frame) {
                continue;
            }
            if (running.pid != app.pid) {
                result.standing.push_back(*frame);
                continue;
            }
            WindowRecord record;
            record.bundleID = *app.bundleID;
            record.appName = app.localizedName.value_or(*app.bundleID);
            record.title = window.attributes.title.value_or("");
            record.frame = *frame;
            result.fresh.push_back({.record = std::move(record), .handle = AXWindowHandle(window.element)});
        }
    }
    return result;
}

} // namespace

Result run(const Task& task, Accessibility& accessibility, Clock& clock, Background& background) {
    Windows windows = read(task.app, accessibility);
    std::vector<Rect> frames;
    for (const CurrentWindow& window : windows.fresh) {
        frames.push_back(window.record.frame);
    }
    const auto targets = LaunchPlacement::targets(*task.app.bundleID, frames, windows.standing, task.rules,
                                                  task.layout, task.displays);
    Result result{.windows = frames.size()};
    const auto fresh = underPermit(std::move(windows.fresh), task.permit);
    // Each window gets a layout of its own, because titles of new windows do not identify them yet.
    for (std::size_t i = 0; i < fresh.size(); ++i) {
        if (!targets[i] || RestoreEngine::isReached(frames[i], *targets[i], task.sizes)) {
            continue;
        }
        Layout place;
        place.windows.push_back(fresh[i].record);
        place.windows.front().frame = *targets[i];
        const auto report =
            RestoreEngine::restore(place, {fresh[i]}, {.sizes = task.sizes}, clock, background);
        result.moved += report.restoredCount();
        result.failed += report.failedCount();
    }
    result.isAbandoned = task.permit->isRevoked();
    return result;
}

} // namespace vantrel::LaunchPlacementPass

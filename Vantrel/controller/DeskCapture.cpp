#include "Vantrel/controller/DeskCapture.h"

#include "VantrelCore/windows/WindowSnapshotter.h"

namespace vantrel::DeskCapture {

std::vector<CurrentWindow> windows(Accessibility& accessibility, const Scope& scope) {
    return WindowSnapshotter::currentWindows(accessibility, scope.displays, scope.excludedBundleID,
                                             scope.ignoredBundleIDs);
}

Picture picture(Accessibility& accessibility, Clock& clock, const Scope& scope) {
    Picture result{.windows = records(windows(accessibility, scope)), .takenAt = {}};
    result.takenAt = clock.now();
    return result;
}

std::vector<WindowRecord> records(const std::vector<CurrentWindow>& windows) {
    std::vector<WindowRecord> result;
    result.reserve(windows.size());
    for (const CurrentWindow& window : windows) {
        result.push_back(window.record);
    }
    return result;
}

} // namespace vantrel::DeskCapture

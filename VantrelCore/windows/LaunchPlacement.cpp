#include "VantrelCore/windows/LaunchPlacement.h"

#include "VantrelCore/windows/RuleApplication.h"

#include <algorithm>
#include <cmath>

namespace vantrel::LaunchPlacement {

namespace {

double sizeDistance(Size a, Size b) {
    return std::abs(a.width - b.width) + std::abs(a.height - b.height);
}

// The application's remembered window closest in size, the first of equals.
std::optional<Rect> bestRememberedFrame(const std::string& bundleID, Size newSize,
                                        const std::optional<Layout>& layout,
                                        const std::optional<std::string>& onDisplayUUID) {
    if (!layout) {
        return std::nullopt;
    }
    std::optional<Rect> best;
    for (const auto& window : layout->windows) {
        const bool isCandidate =
            window.bundleID == bundleID && (!onDisplayUUID || window.displayUUID == *onDisplayUUID);
        if (isCandidate &&
            (!best || sizeDistance(window.frame.size, newSize) < sizeDistance(best->size, newSize))) {
            best = window.frame;
        }
    }
    return best;
}

// Keeps its size, centred in the display's whole frame; not clamped.
Rect centred(Size size, const Rect& display) {
    const Point center = display.center();
    return {{center.x - size.width * 0.5, center.y - size.height * 0.5}, size};
}

// In points; the same as for a restored window.
constexpr double tolerance = 2.0;

// Removes a place that is taken, so that no other window gets it.
void takePlace(std::optional<Layout>& layout, const std::string& bundleID, const Rect& frame) {
    if (!layout) {
        return;
    }
    const auto taken = std::ranges::find_if(layout->windows, [&](const WindowRecord& window) {
        return window.bundleID == bundleID && approxEqual(window.frame, frame, tolerance);
    });
    if (taken != layout->windows.end()) {
        layout->windows.erase(taken);
    }
}

} // namespace

std::optional<Rect> target(const std::string& bundleID, const Rect& newWindowFrame,
                           const std::vector<AppRule>& rules, const std::optional<Layout>& currentLayout,
                           const std::vector<DisplayInfo>& displays) {
    if (RuleApplication::ignoredBundleIDs(rules).contains(bundleID)) {
        return std::nullopt;
    }
    const auto forced = RuleApplication::forcedDisplayUUID(bundleID, rules);
    const auto remembered = bestRememberedFrame(bundleID, newWindowFrame.size, currentLayout, forced);
    if (!forced) {
        return remembered;
    }
    const auto display = std::ranges::find(displays, *forced, &DisplayInfo::uuid);
    if (display == displays.end()) {
        return std::nullopt;
    }
    return remembered ? remembered : centred(newWindowFrame.size, display->frame);
}

std::vector<std::optional<Rect>> targets(const std::string& bundleID, const std::vector<Rect>& newWindows,
                                         const std::vector<Rect>& standing, const std::vector<AppRule>& rules,
                                         std::optional<Layout> currentLayout,
                                         const std::vector<DisplayInfo>& displays) {
    for (const Rect& frame : standing) {
        takePlace(currentLayout, bundleID, frame);
    }
    std::vector<std::optional<Rect>> result;
    for (const Rect& frame : newWindows) {
        result.push_back(target(bundleID, frame, rules, currentLayout, displays));
        if (result.back()) {
            takePlace(currentLayout, bundleID, *result.back());
        }
    }
    return result;
}

} // namespace vantrel::LaunchPlacement

#include "Vantrel/interface/desk/DeskPicture.h"

#include "Vantrel/controller/PublishedState.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/windows/VisibleWindows.h"
#include "VantrelCore/windows/WindowPairing.h"

#include <algorithm>

namespace vantrel {

namespace {

using State = DeskPicture::Window::State;

// Closer than this a window counts as being in its place: programs round their sizes.
constexpr double tolerance = 2;

std::vector<WindowRecord> frontToBack(const Layout& layout) {
    auto records = layout.withOtherWindows().windows;
    std::ranges::stable_sort(records, {}, &WindowRecord::zOrder);
    return records;
}

DeskPicture::Window drawn(const WindowRecord& record) {
    return {.bundleID = record.bundleID,
            .appName = record.appName,
            .title = record.title,
            .frame = record.frame,
            .isOutOfSight = record.states.isMinimized};
}

std::vector<DeskPicture::Window> seen(const std::vector<LiveWindow>& live) {
    std::vector<DeskPicture::Window> windows;
    for (const LiveWindow& window : live) {
        windows.push_back(drawn(window.record));
        windows.back().state = State::seen;
        windows.back().isOutOfSight = !window.isVisible;
        windows.back().live = window.id;
    }
    return windows;
}

// Whether the last restore of this desk failed to move this window.
bool hasFailed(const PublishedState& state, const WindowRecord& record) {
    return state.lastRestore && state.lastRestore->configID == state.configID &&
           std::ranges::any_of(state.lastRestore->report.items, [&](const RestoreReport::Item& item) {
               return item.outcome.kind == RestoreReport::Kind::failed && item.bundleID == record.bundleID &&
                      item.title == record.title;
           });
}

void compare(std::vector<DeskPicture::Window>& windows, const std::vector<WindowRecord>& records,
             const std::vector<LiveWindow>& live, const PublishedState& state) {
    const MatchResult matched = WindowPairing::pair(records, {}, live);
    for (const std::size_t saved : matched.unmatchedSaved) {
        const bool isRunning = std::ranges::any_of(live, [&](const LiveWindow& window) {
            return window.record.bundleID == records[saved].bundleID;
        });
        windows[saved].state = isRunning ? State::noWindow : State::notRunning;
    }
    for (const auto& pair : matched.pairs) {
        const LiveWindow& now = live[pair.current];
        windows[pair.saved].live = now.id;
        if (!now.isVisible || approxEqual(now.record.frame, records[pair.saved].frame, tolerance)) {
            continue;
        }
        windows[pair.saved].now = now.record.frame;
        if (hasFailed(state, records[pair.saved])) {
            windows[pair.saved].state = State::couldNotMove;
        }
    }
}

} // namespace

std::size_t DeskPicture::movedCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(windows, [](const Window& window) { return window.now.has_value(); }));
}

DeskPicture DeskPicture::ofCurrentDesk(const PublishedState& state) {
    DeskPicture picture{.displays = DisplayLabels::labelled(state.displays), .windows = {}};
    const auto live = state.liveWindows
                          ? VisibleWindows::every({.apps = {}, .windows = *state.liveWindows}, state.displays)
                          : std::vector<LiveWindow>{};
    const Layout* const layout = state.activeLayout();
    if (layout == nullptr) {
        picture.windows = seen(live);
        return picture;
    }
    const auto records = frontToBack(*layout);
    std::ranges::transform(records, std::back_inserter(picture.windows), drawn);
    if (state.liveWindows) {
        compare(picture.windows, records, live, state);
    }
    return picture;
}

DeskPicture DeskPicture::ofLayout(const Layout& layout) {
    DeskPicture picture{.displays = DisplayLabels::labelled(layout.displays), .windows = {}};
    std::ranges::transform(frontToBack(layout), std::back_inserter(picture.windows), drawn);
    return picture;
}

DeskPicture DeskPicture::ofScene(const Scene& scene, const PublishedState& state) {
    DeskPicture picture{.displays = DisplayLabels::labelled(scene.layout.displays), .windows = {}};
    const auto records = frontToBack(scene.layout);
    for (const WindowRecord& record : records) {
        Window window = drawn(record);
        const bool isRunning = state.liveWindows
                                   ? std::ranges::find(*state.liveWindows, record.bundleID,
                                                       &DeskWindow::bundleID) != state.liveWindows->end()
                                   : !record.isGhost.value_or(false);
        window.state = isRunning ? State::remembered : State::notRunning;
        window.opensWhenMissing = !isRunning && scene.effectiveOpensMissingApps();
        picture.windows.push_back(std::move(window));
    }
    if (state.liveWindows) {
        const auto live = VisibleWindows::every({.apps = {}, .windows = *state.liveWindows}, state.displays);
        for (const auto& pair : WindowPairing::pair(records, {}, live).pairs) {
            picture.windows[pair.saved].live = live[pair.current].id;
        }
    }
    return picture;
}

} // namespace vantrel

#include "benchmarks/desk/CrowdedDesk.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <stdexcept>
#include <vector>

namespace vantrel::bench {

namespace {

constexpr tools::MonitorPlace leftMonitor{0, 0, 2560, 1440};
constexpr tools::MonitorPlace rightMonitor{2560, 0, 1920, 1080};

// Cascades over both monitors; the second arrangement has a different start and different sizes.
Rect frameOf(std::size_t index, std::size_t arrangement) {
    const std::size_t column = index % 11;
    const std::size_t row = index / 11;
    const double x = static_cast<double>(30 + column * 340 + row * 5 + arrangement * 97);
    const double y = static_cast<double>(20 + row * 45 + column * 7 + arrangement * 61);
    const double width = static_cast<double>(480 + index % 7 * 20 + arrangement * 33);
    const double height = static_cast<double>(360 + index % 5 * 20 + arrangement * 27);
    return {{x, y}, {width, height}};
}

} // namespace

CrowdedDesk::CrowdedDesk(const Crowd& crowd) : m_desk({leftMonitor, rightMonitor}, "openbox") {
    for (std::size_t i = 0; i < crowd.applications; ++i) {
        m_desk.start({VANTREL_DESK_CLIENT, fmt::format("Application{}", i + 1),
                      std::to_string(crowd.windowsPerApplication)});
    }
    std::vector<tools::SeenWindow> windows;
    constexpr int tries = 60;
    constexpr double tryOften = 0.5;
    for (int tried = 0; windows.size() < crowd.windows(); ++tried) {
        if (tried == tries) {
            throw std::runtime_error(
                fmt::format("Only {} of {} windows appeared on screen.", windows.size(), crowd.windows()));
        }
        // openbox 3.6 may sleep on a request that it has already read; any message wakes it.
        m_desk.connection().tellWindowManager(m_desk.connection().root(), "_NET_REQUEST_FRAME_EXTENTS", {});
        std::ignore = m_desk.connection().waitUntil(
            [&] {
                windows = tools::seenWindows(m_desk.connection());
                std::erase_if(windows, [](const tools::SeenWindow& window) { return !window.isViewable; });
                return windows.size() == crowd.windows();
            },
            tryOften);
    }
    // Sorted by id, so that neighbours in an arrangement belong to the same application.
    std::ranges::sort(windows, {}, &tools::SeenWindow::client);
    for (std::size_t arrangement = 0; arrangement < m_arrangements.size(); ++arrangement) {
        for (std::size_t i = 0; i < windows.size(); ++i) {
            const auto& [client, frameWindow, frame, clientArea, title, className, pid, isViewable] =
                windows[i];
            const Rect target = frameOf(i, arrangement);
            m_arrangements.at(arrangement)
                .push_back({.window = client,
                            .frame = target,
                            .clientWidth = static_cast<std::uint32_t>(target.width() -
                                                                      (frame.width() - clientArea.width())),
                            .clientHeight = static_cast<std::uint32_t>(
                                target.height() - (frame.height() - clientArea.height()))});
        }
    }
}

std::size_t CrowdedDesk::arrived(const Arrangement& arrangement) {
    std::map<xcb_window_t, Rect> frames;
    for (const auto& window : tools::seenWindows(m_desk.connection())) {
        frames.emplace(window.client, window.frame);
    }
    return static_cast<std::size_t>(std::ranges::count_if(arrangement, [&](const Placement& placement) {
        const auto found = frames.find(placement.window);
        return found != frames.end() && found->second == placement.frame;
    }));
}

} // namespace vantrel::bench

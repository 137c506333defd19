// Reads the desk of an X server. Takes two round trips, whatever the number of windows.
#pragma once

#include "Vantrel/platform/x11/WindowFacts.h"
#include "Vantrel/platform/x11/X11Desk.h"
#include "VantrelCore/ports/Accessibility.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel {

class X11DeskReading final : public DeskReading {
public:
    // A window as X11 identifies it.
    struct Client {
        xcb_window_t window = XCB_WINDOW_NONE;
        WindowMarks::Mark mark = 0;
        RunningApp app;
        bool isMinimized = false;
    };

    explicit X11DeskReading(std::shared_ptr<X11Desk> desk);

    // All windows, on screen or not, in the order in which they appeared.
    [[nodiscard]] std::vector<Client> clients() const;

    [[nodiscard]] std::vector<WindowListEntry> onScreenWindows() override;
    [[nodiscard]] std::vector<RunningApp> runningApps() override;
    [[nodiscard]] std::vector<WindowReading> windows(const RunningApp& app) override;

private:
    struct Window {
        xcb_window_t id = XCB_WINDOW_NONE;
        WindowMarks::Mark mark = 0;
        WindowFacts facts;
        // Its pid is negative if the process is unknown.
        RunningApp app;
        bool isOnScreen = false;
    };

    // Reads the given windows, bottom to top, in one round trip.
    void readWindows(const std::vector<xcb_window_t>& ids,
                     const std::optional<std::uint32_t>& currentDesktop);
    void orderByAppearance(const std::vector<xcb_window_t>& appearance);

    std::shared_ptr<X11Desk> m_desk;
    // Back to front.
    std::vector<Window> m_stacking;
    // Indices into m_stacking in the order in which the windows appeared.
    std::vector<std::size_t> m_appearance;
};

} // namespace vantrel

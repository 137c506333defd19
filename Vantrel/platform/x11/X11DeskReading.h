// One pass over the desk of an X server: two round trips, whatever the number of windows.
#pragma once

#include "Vantrel/platform/x11/WindowFacts.h"
#include "Vantrel/platform/x11/X11Context.h"
#include "VantrelCore/ports/Desk.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel {

// A window of the X server: its id and the life of that id; see WindowMarks.
struct X11Window {
    xcb_window_t window = XCB_WINDOW_NONE;
    WindowMarks::Mark mark = 0;

    bool operator==(const X11Window&) const = default;

    [[nodiscard]] WindowID id() const { return WindowID{static_cast<std::uint64_t>(mark) << 32U | window}; }
    [[nodiscard]] static X11Window of(WindowID id) {
        const auto value = static_cast<std::uint64_t>(id);
        return {.window = static_cast<xcb_window_t>(value),
                .mark = static_cast<WindowMarks::Mark>(value >> 32U)};
    }
};

class X11DeskReading {
public:
    // A window as the platform names it.
    struct Client {
        X11Window window;
        RunningApp app;
        bool isMinimized = false;
    };

    // Reads everything.
    explicit X11DeskReading(std::shared_ptr<X11Context> context);

    // Every window, on screen or not, in the order they appeared.
    [[nodiscard]] std::vector<Client> clients() const;

    [[nodiscard]] DeskSnapshot snapshot(const CaptureFilter& filter) const;

    // Reads these windows again, in one round trip; none for one that is gone.
    [[nodiscard]] static std::vector<std::optional<DeskWindow>> look(X11Context& context,
                                                                     std::span<const WindowID> windows);

private:
    struct Window {
        X11Window window;
        WindowFacts facts;
        // Belongs to the process, or to a stand-in if the process is unknown.
        RunningApp app;
        bool isOnScreen = false;
    };

    // Reads the windows in one round trip. Those that are gone are left out; marks are left to the caller.
    [[nodiscard]] static std::vector<Window> read(X11Context& context, std::span<const xcb_window_t> ids);
    [[nodiscard]] static DeskWindow describe(const Window& window);
    // Reads the given windows, bottom to top.
    void readStack(const std::vector<xcb_window_t>& ids, const std::optional<std::uint32_t>& currentDesktop);
    void orderByAppearance(const std::vector<xcb_window_t>& appearance);
    [[nodiscard]] std::vector<RunningApp> runningApps() const;

    std::shared_ptr<X11Context> m_context;
    // Back to front.
    std::vector<Window> m_stacking;
    // Indices into m_stacking in the order in which the windows appeared.
    std::vector<std::size_t> m_appearance;
};

} // namespace vantrel

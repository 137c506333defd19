// The minimum cost of capturing and moving windows: requests sent directly to the X server, all in flight at
// once, without decisions, retries or memory.
#pragma once

#include "benchmarks/desk/Arrangement.h"
#include "tools/desk/DeskConnection.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel::bench {

class XcbFloor {
public:
    struct Window {
        xcb_window_t id = XCB_WINDOW_NONE;
        Rect frame;
        std::string title;
        std::string wmClass;
        std::uint32_t pid = 0;
    };

    // Throws std::runtime_error if the server does not respond.
    explicit XcbFloor(const std::string& display);
    ~XcbFloor();
    XcbFloor(const XcbFloor&) = delete;
    XcbFloor& operator=(const XcbFloor&) = delete;

    // Reads the stacking list, then all properties that decide what is captured, for all windows at once.
    [[nodiscard]] std::vector<Window> capture();

    // Sends all moves at once, waits for one reply from the window manager, then reads all frames back at
    // once. True if every window is in place.
    [[nodiscard]] bool restore(const Arrangement& arrangement);

    // Returns when the window manager has processed everything that any client sent before.
    void awaitWindowManager();

private:
    enum Atom : std::size_t {
        clientListStacking,
        moveResizeWindow,
        requestFrameExtents,
        frameExtents,
        gtkFrameExtents,
        state,
        netName,
        type,
        desktop,
        netPid,
        gtkApplicationId,
        kdeDesktopFile,
        atomCount,
    };

    void renewFence();
    void send(xcb_window_t window, Atom message, const std::array<std::uint32_t, 5>& data);
    [[nodiscard]] xcb_get_property_cookie_t ask(xcb_window_t window, xcb_atom_t property) const;

    xcb_connection_t* m_xcb;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    // The window used in requests to the window manager.
    xcb_window_t m_fence = XCB_WINDOW_NONE;
    std::array<xcb_atom_t, atomCount> m_atoms{};
};

} // namespace vantrel::bench

// What capturing and moving windows costs at the least: requests written straight to the X server, as many in
// flight as there are, with nothing decided, retried or remembered.
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

    // Throws std::runtime_error when the server does not answer.
    explicit XcbFloor(const std::string& display);
    ~XcbFloor();
    XcbFloor(const XcbFloor&) = delete;
    XcbFloor& operator=(const XcbFloor&) = delete;

    // The stacking list, then everything that decides what is captured, of every window at once.
    [[nodiscard]] std::vector<Window> capture();

    // All moves in one go, one answer of the window manager, then every frame read back at once. True when
    // every window stands where it shall.
    [[nodiscard]] bool restore(const Arrangement& arrangement);

    // Returns when the window manager has worked off everything sent before by anyone.
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
    // The window about which the window manager is asked.
    xcb_window_t m_fence = XCB_WINDOW_NONE;
    std::array<xcb_atom_t, atomCount> m_atoms{};
};

} // namespace vantrel::bench

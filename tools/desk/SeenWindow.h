// The windows as the X server itself has them: the ground truth that adapters are compared with.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "tools/desk/DeskConnection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::tools {

struct SeenWindow {
    // The program's own window.
    xcb_window_t client = 0;
    // The child of the root that holds it; the same as `client` without a window manager's frame.
    xcb_window_t frameWindow = 0;
    // What the user sees: the frame with its border, less a shadow that the program draws itself.
    Rect frame;
    // The program's window in root coordinates.
    Rect clientArea;
    std::string title;
    std::string className;
    std::uint32_t pid = 0;
    // Mapped with all its ancestors.
    bool isViewable = false;
};

// Every window that a window manager manages (it carries WM_STATE), front to back.
[[nodiscard]] std::vector<SeenWindow> seenWindows(DeskConnection& connection);

// Every window on screen that is kept from window managers, front to back: menus, tool tips, signs.
[[nodiscard]] std::vector<SeenWindow> seenOverlays(DeskConnection& connection);

// The window as it is now; none when it is gone.
[[nodiscard]] std::optional<SeenWindow> seenWindow(DeskConnection& connection, xcb_window_t client);

// The steps in which its program lets the window grow (WM_NORMAL_HINTS); 1 x 1 when it names none.
[[nodiscard]] Size sizeIncrement(DeskConnection& connection, xcb_window_t client);

} // namespace vantrel::tools

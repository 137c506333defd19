// The windows as the X server reports them: the ground truth for testing adapters.
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
    // The child of the root that contains it; equal to `client` without a window manager's frame.
    xcb_window_t frameWindow = 0;
    // What the user sees: the frame with its border, without a shadow drawn by the program.
    Rect frame;
    // The program's window in root coordinates.
    Rect clientArea;
    std::string title;
    std::string className;
    std::uint32_t pid = 0;
    // Mapped, including all ancestors.
    bool isViewable = false;
};

// Every window that a window manager manages (it carries WM_STATE), front to back.
[[nodiscard]] std::vector<SeenWindow> seenWindows(DeskConnection& connection);

// Every override-redirect window on screen, front to back: menus, tooltips, overlays.
[[nodiscard]] std::vector<SeenWindow> seenOverlays(DeskConnection& connection);

// The window as it is now; none if it no longer exists.
[[nodiscard]] std::optional<SeenWindow> seenWindow(DeskConnection& connection, xcb_window_t client);

// The window's size increments (WM_NORMAL_HINTS); 1 x 1 if none are set.
[[nodiscard]] Size sizeIncrement(DeskConnection& connection, xcb_window_t client);

} // namespace vantrel::tools

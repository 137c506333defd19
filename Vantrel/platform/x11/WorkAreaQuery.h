// Reads which areas panels and the window manager reserve.
#pragma once

#include "Vantrel/platform/x11/Struts.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <optional>
#include <vector>

namespace vantrel {

struct WorkAreaReading {
    // The whole X screen.
    Size screen;
    // From the windows on the current desktop or on all desktops.
    std::vector<Strut> struts;
    // The window manager's work area for the current desktop.
    std::optional<Rect> workArea;

    // In root window coordinates, as is `monitor`.
    [[nodiscard]] Rect visibleFrame(const Rect& monitor) const;
};

namespace WorkAreaQuery {

// Takes two round trips. Reports nothing reserved if there is no window manager or the connection is lost.
[[nodiscard]] WorkAreaReading read(const X11Connection& connection);

} // namespace WorkAreaQuery

} // namespace vantrel

// Reads what panels and the window manager keep free of windows.
#pragma once

#include "Vantrel/platform/x11/Struts.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <optional>
#include <vector>

namespace vantrel {

struct WorkAreaReading {
    // The whole X screen.
    Size screen;
    // Of the windows on the current desktop or on all.
    std::vector<Strut> struts;
    // The window manager's, for the current desktop.
    std::optional<Rect> workArea;

    // Root window coordinates, as `monitor`.
    [[nodiscard]] Rect visibleFrame(const Rect& monitor) const;
};

namespace WorkAreaQuery {

// Two round trips. Nothing is reserved when there is no window manager or the connection is lost.
[[nodiscard]] WorkAreaReading read(const X11Connection& connection);

} // namespace WorkAreaQuery

} // namespace vantrel

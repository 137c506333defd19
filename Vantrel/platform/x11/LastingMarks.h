// What this program leaves on the X server for its next run: the marks of windows (WindowMarks), each a
// property of its window, and a name for the session, a property of the root window.
//
// A property is the only mark that ends exactly with its window: process and start time do not tell apart two
// windows of one program that had the same id, and many windows state no process. All of it ends with the
// server, which closes the windows too.
#pragma once

#include "Vantrel/platform/x11/WindowMarks.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vantrel::LastingMarks {

// One per window, in one round trip; none without windows.
[[nodiscard]] std::vector<std::optional<WindowMarks::Mark>> read(const X11Connection& connection,
                                                                 std::span<const xcb_window_t> windows);

// Does not flush.
void write(const X11Connection& connection, xcb_window_t window, WindowMarks::Mark mark);

// The name of the session, given now if it has none. None when the connection is lost.
[[nodiscard]] std::optional<std::string> session(const X11Connection& connection);

} // namespace vantrel::LastingMarks

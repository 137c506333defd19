// The demo's monitors, its programs with some content, and the positions of their windows.
#pragma once

#include "tools/demo/DemoTable.h"
#include "tools/desk/PrivateDesk.h"

#include <string>
#include <vector>

namespace vantrel::tools {

inline constexpr MonitorPlace leftMonitor{0, 0, 1280, 1024};
inline constexpr MonitorPlace rightMonitor{1280, 0, 1600, 900};

// A window and its result; nothing is measured yet.
struct DemoActor {
    xcb_window_t client = 0;
    WindowStory story;
};

// The states of a window in words, as in WindowStory.
[[nodiscard]] std::string stateOf(DeskConnection& connection, xcb_window_t client);

// Names the desk's two monitors "Desk 24" and "Side 27", writes the files that the programs show to its home,
// starts the programs and makes the window manager arrange their windows.
[[nodiscard]] std::vector<DemoActor> openDemo(PrivateDesk& desk);

} // namespace vantrel::tools

// The window server's list of windows on screen.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <vector>

namespace vantrel::QuartzWindowList {

// Front to back, without desktop elements. An item that cannot be read becomes an empty entry, so that the
// order is kept. Empty if there is no list.
[[nodiscard]] std::vector<WindowListEntry> onScreen();

} // namespace vantrel::QuartzWindowList

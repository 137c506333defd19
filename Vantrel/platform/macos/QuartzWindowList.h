// The window server's list of what is on screen.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <vector>

namespace vantrel::QuartzWindowList {

// Front to back, without the desktop's own elements. An item that cannot be read has an entry without values,
// so that the others keep their places. Empty when there is no list.
[[nodiscard]] std::vector<WindowListEntry> onScreen();

} // namespace vantrel::QuartzWindowList

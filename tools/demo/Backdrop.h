// Colours the root window, so that pictures show where each monitor is and where there is none.
#pragma once

#include "tools/desk/PrivateDesk.h"

namespace vantrel::tools {

// Paints every plugged monitor in a colour of its own.
void paintBackdrop(PrivateDesk& desk);

} // namespace vantrel::tools

// Colours the root window, so that screenshots show where each monitor is and where there is none.
#pragma once

#include "tools/desk/PrivateDesk.h"

namespace vantrel::tools {

// Paints each plugged-in monitor in a different colour.
void paintBackdrop(PrivateDesk& desk);

} // namespace vantrel::tools

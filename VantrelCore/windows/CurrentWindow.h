// A live window with the element that moves it, on platforms that give elements.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/windows/AXWindowHandle.h"

namespace vantrel {

struct CurrentWindow {
    // Without an identity: elements have none of their own.
    DeskWindow window;
    AXWindowHandle handle;
};

} // namespace vantrel

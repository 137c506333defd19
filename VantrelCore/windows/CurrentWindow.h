// A live window: a record of its current values, and a handle to move it.
#pragma once

#include "VantrelCore/model/WindowRecord.h"
#include "VantrelCore/windows/AXWindowHandle.h"

namespace vantrel {

struct CurrentWindow {
    WindowRecord record;
    AXWindowHandle handle;
};

} // namespace vantrel

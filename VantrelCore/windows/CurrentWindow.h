// A live window: a record with live values, and the handle that moves it.
#pragma once

#include "VantrelCore/model/WindowRecord.h"
#include "VantrelCore/windows/AXWindowHandle.h"

namespace vantrel {

struct CurrentWindow {
    WindowRecord record;
    AXWindowHandle handle;
};

} // namespace vantrel

// The target positions of all windows on a crowded desk.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel::bench {

struct Placement {
    xcb_window_t window = XCB_WINDOW_NONE;
    // As the user sees it, including decoration; whole pixels.
    Rect frame;
    // The client area.
    std::uint32_t clientWidth = 0;
    std::uint32_t clientHeight = 0;
};

using Arrangement = std::vector<Placement>;

} // namespace vantrel::bench

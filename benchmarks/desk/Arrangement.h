// Where every window of a crowded desk shall stand.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel::bench {

struct Placement {
    xcb_window_t window = XCB_WINDOW_NONE;
    // What the user sees, decoration included; whole pixels.
    Rect frame;
    // The program's own part of it.
    std::uint32_t clientWidth = 0;
    std::uint32_t clientHeight = 0;
};

using Arrangement = std::vector<Placement>;

} // namespace vantrel::bench

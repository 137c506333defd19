// The part of a monitor that panels and docks leave for windows.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vantrel {

// The strip that a window reserves along an edge of the X screen (_NET_WM_STRUT_PARTIAL). The thickness is
// measured from the edge of the whole screen, even if the monitor ends short of it.
struct Strut {
    enum class Edge : std::uint8_t { left, right, top, bottom };

    Edge edge = Edge::top;
    double thickness = 0;
    // The range along the edge; `end` is exclusive.
    double start = 0;
    double end = 0;

    bool operator==(const Strut&) const = default;
};

namespace Struts {

// Decodes the 12 values of _NET_WM_STRUT_PARTIAL or the 4 of _NET_WM_STRUT, which cover the whole edge.
// Returns nothing for any other length.
[[nodiscard]] std::vector<Strut> decode(std::span<const std::uint32_t> values);

// `monitor` less the struts that end inside it, in root window coordinates. Never empty: ignores the struts
// if they would leave nothing.
[[nodiscard]] Rect visibleFrame(const Rect& monitor, const Size& screen, const std::vector<Strut>& struts);

// The part of `monitor` inside the window manager's work area, for when no window sets a strut. With several
// monitors, window managers disagree on what the work area is. One that covers less than half of this monitor
// is ignored.
[[nodiscard]] Rect visibleFrame(const Rect& monitor, const std::optional<Rect>& workArea);

} // namespace Struts

} // namespace vantrel

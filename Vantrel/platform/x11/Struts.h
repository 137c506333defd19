// The part of a monitor that panels and docks leave to windows.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vantrel {

// The strip that one window reserves along an edge of the X screen (_NET_WM_STRUT_PARTIAL). The thickness
// counts from the edge of the whole screen, also where a monitor ends before it.
struct Strut {
    enum class Edge : std::uint8_t { left, right, top, bottom };

    Edge edge = Edge::top;
    double thickness = 0;
    // Where along the edge it begins and ends; the end does not belong to it.
    double start = 0;
    double end = 0;

    bool operator==(const Strut&) const = default;
};

namespace Struts {

// The strips in the values of one window's property: 12 numbers of _NET_WM_STRUT_PARTIAL, or the 4 of
// _NET_WM_STRUT, which hold for the whole edge. Anything else has none.
[[nodiscard]] std::vector<Strut> decode(std::span<const std::uint32_t> values);

// `monitor` less the strips that end inside it, in root window coordinates, as `monitor` is. Never empty: a
// strip that would leave nothing is none.
[[nodiscard]] Rect visibleFrame(const Rect& monitor, const Size& screen, const std::vector<Strut>& struts);

// For a desk where no window reserves anything: the part of `monitor` inside the window manager's work area.
// Window managers differ on what that is with several monitors, so one that covers less than half of this
// monitor is taken to speak of others.
[[nodiscard]] Rect visibleFrame(const Rect& monitor, const std::optional<Rect>& workArea);

} // namespace Struts

} // namespace vantrel

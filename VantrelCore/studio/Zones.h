// The parts of a display that windows are commonly given: halves, thirds, quarters. Coordinates are those of
// the usable frame they are asked for.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <array>
#include <cstdint>
#include <optional>

namespace vantrel {

enum class Zone : std::uint8_t {
    full,
    leftHalf,
    rightHalf,
    upperHalf,
    lowerHalf,
    leftThird,
    middleThird,
    rightThird,
    leftTwoThirds,
    rightTwoThirds,
    upperLeftQuarter,
    upperRightQuarter,
    lowerLeftQuarter,
    lowerRightQuarter,
    // Not at any edge, with free space all around.
    centred,
};

namespace Zones {

inline constexpr std::array all{Zone::full,
                                Zone::leftHalf,
                                Zone::rightHalf,
                                Zone::upperHalf,
                                Zone::lowerHalf,
                                Zone::leftThird,
                                Zone::middleThird,
                                Zone::rightThird,
                                Zone::leftTwoThirds,
                                Zone::rightTwoThirds,
                                Zone::upperLeftQuarter,
                                Zone::upperRightQuarter,
                                Zone::lowerLeftQuarter,
                                Zone::lowerRightQuarter,
                                Zone::centred};

// Neighbouring zones are exactly `gap` apart; at the edges of `usable` there is none.
[[nodiscard]] Rect frame(Zone zone, const Rect& usable, double gap = 0);

// The zone that a box dropped at `point` fills; none further than `reach` from every edge. The left and right
// edges give halves, the corners quarters, the upper edge the whole, the lower edge thirds and, between them,
// two thirds.
[[nodiscard]] std::optional<Zone> at(Point point, const Rect& usable, double reach);

// For people: "Right third".
[[nodiscard]] const char* name(Zone zone);
// For people, within a sentence: "the right third".
[[nodiscard]] const char* phrase(Zone zone);

} // namespace Zones

} // namespace vantrel

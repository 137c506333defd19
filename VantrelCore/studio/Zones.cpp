#include "VantrelCore/studio/Zones.h"

#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vantrel::Zones {

namespace {

// From and to, as shares of the usable frame.
struct Span {
    double from;
    double to;
};

struct Row {
    Zone zone;
    Span across;
    Span down;
    const char* name;
    const char* phrase;
};

constexpr Span whole{0, 1};
constexpr Span first{0, 0.5};
constexpr Span second{0.5, 1};
constexpr double third = 1.0 / 3;

constexpr std::array rows{
    Row{Zone::full, whole, whole, marked("All"), marked("the display")},
    Row{Zone::leftHalf, first, whole, marked("Left half"), marked("the left half")},
    Row{Zone::rightHalf, second, whole, marked("Right half"), marked("the right half")},
    Row{Zone::upperHalf, whole, first, marked("Upper half"), marked("the upper half")},
    Row{Zone::lowerHalf, whole, second, marked("Lower half"), marked("the lower half")},
    Row{Zone::leftThird, {0, third}, whole, marked("Left third"), marked("the left third")},
    Row{Zone::middleThird, {third, 2 * third}, whole, marked("Middle third"), marked("the middle third")},
    Row{Zone::rightThird, {2 * third, 1}, whole, marked("Right third"), marked("the right third")},
    Row{Zone::leftTwoThirds, {0, 2 * third}, whole, marked("Left two thirds"), marked("the left two thirds")},
    Row{Zone::rightTwoThirds, {third, 1}, whole, marked("Right two thirds"), marked("the right two thirds")},
    Row{Zone::upperLeftQuarter, first, first, marked("Upper left quarter"), marked("the upper left quarter")},
    Row{Zone::upperRightQuarter, second, first, marked("Upper right quarter"),
        marked("the upper right quarter")},
    Row{Zone::lowerLeftQuarter, first, second, marked("Lower left quarter"),
        marked("the lower left quarter")},
    Row{Zone::lowerRightQuarter, second, second, marked("Lower right quarter"),
        marked("the lower right quarter")},
    Row{Zone::centred, {0.15, 0.85}, {0.1, 0.9}, marked("Centred"), marked("the middle")},
};

const Row& row(Zone zone) {
    return *std::ranges::find(rows, zone, &Row::zone);
}

// The part of an axis. Equal shares are equally long, whatever the gap.
Span part(Span share, double from, double length, double gap) {
    const double step = length + gap;
    return {from + share.from * step, from + share.to * step - gap};
}

Zone lowerEdge(double along) {
    // Two thirds lie where two thirds meet.
    constexpr double overlap = third / 4;
    if (std::abs(along - third) < overlap) {
        return Zone::leftTwoThirds;
    }
    if (std::abs(along - 2 * third) < overlap) {
        return Zone::rightTwoThirds;
    }
    return along < third ? Zone::leftThird : along < 2 * third ? Zone::middleThird : Zone::rightThird;
}

} // namespace

Rect frame(Zone zone, const Rect& usable, double gap) {
    const Row& shares = row(zone);
    const Span across = part(shares.across, usable.minX(), usable.width(), gap);
    const Span down = part(shares.down, usable.minY(), usable.height(), gap);
    return {{across.from, down.from},
            {std::max(0.0, across.to - across.from), std::max(0.0, down.to - down.from)}};
}

std::optional<Zone> at(Point point, const Rect& usable, double reach) {
    if (usable.isEmpty()) {
        return std::nullopt;
    }
    const bool isLeft = point.x < usable.minX() + reach;
    const bool isRight = point.x > usable.maxX() - reach;
    const bool isUpper = point.y < usable.minY() + reach;
    const bool isLower = point.y > usable.maxY() - reach;
    if (isLeft || isRight) {
        return isUpper   ? (isLeft ? Zone::upperLeftQuarter : Zone::upperRightQuarter)
               : isLower ? (isLeft ? Zone::lowerLeftQuarter : Zone::lowerRightQuarter)
               : isLeft  ? Zone::leftHalf
                         : Zone::rightHalf;
    }
    if (isUpper) {
        return Zone::full;
    }
    return isLower ? std::optional(lowerEdge((point.x - usable.minX()) / usable.width())) : std::nullopt;
}

const char* name(Zone zone) {
    return tr(row(zone).name);
}

const char* phrase(Zone zone) {
    return tr(row(zone).phrase);
}

} // namespace vantrel::Zones

#include "VantrelCore/studio/Distances.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace vantrel::Distances {

namespace {

bool overlapAcross(const Rect& a, const Rect& b) {
    return a.minX() < b.maxX() && b.minX() < a.maxX();
}

bool overlapDown(const Rect& a, const Rect& b) {
    return a.minY() < b.maxY() && b.minY() < a.maxY();
}

bool covers(const Rect& box, Point point) {
    return box.minX() < point.x && point.x < box.maxX() && box.minY() < point.y && point.y < box.maxY();
}

} // namespace

double Distance::length() const {
    return std::hypot(to.x - from.x, to.y - from.y);
}

std::vector<Distance> of(const Rect& box, const std::vector<Rect>& others, const Rect& usable,
                         double shortest) {
    double left = usable.minX();
    double right = usable.maxX();
    double top = usable.minY();
    double bottom = usable.maxY();
    for (const Rect& other : others) {
        if (overlapDown(box, other)) {
            left = other.maxX() <= box.minX() ? std::max(left, other.maxX()) : left;
            right = other.minX() >= box.maxX() ? std::min(right, other.minX()) : right;
        }
        if (overlapAcross(box, other)) {
            top = other.maxY() <= box.minY() ? std::max(top, other.maxY()) : top;
            bottom = other.minY() >= box.maxY() ? std::min(bottom, other.minY()) : bottom;
        }
    }
    const Point middle = box.center();
    const std::array all{Distance{{box.minX(), middle.y}, {left, middle.y}},
                         Distance{{box.maxX(), middle.y}, {right, middle.y}},
                         Distance{{middle.x, box.minY()}, {middle.x, top}},
                         Distance{{middle.x, box.maxY()}, {middle.x, bottom}}};
    std::vector<Distance> shown;
    std::ranges::copy_if(all, std::back_inserter(shown), [&](const Distance& distance) {
        return distance.length() >= shortest && usable.contains(distance.from) &&
               std::ranges::none_of(others, [&](const Rect& other) { return covers(other, distance.from); });
    });
    return shown;
}

} // namespace vantrel::Distances

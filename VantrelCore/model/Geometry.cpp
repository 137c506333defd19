#include "VantrelCore/model/Geometry.h"

#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <cmath>

namespace vantrel {

Rect intersection(const Rect& a, const Rect& b) {
    // Also false for NaN, which min and max below would hide.
    const bool isOverlapping =
        a.minX() < b.maxX() && b.minX() < a.maxX() && a.minY() < b.maxY() && b.minY() < a.maxY();
    const double left = std::max(a.minX(), b.minX());
    const double top = std::max(a.minY(), b.minY());
    const double right = std::min(a.maxX(), b.maxX());
    const double bottom = std::min(a.maxY(), b.maxY());
    if (!isOverlapping || !(right > left && bottom > top)) {
        return {};
    }
    return {{left, top}, {right - left, bottom - top}};
}

bool approxEqual(const Rect& a, const Rect& b, double tolerance) {
    return std::abs(a.minX() - b.minX()) <= tolerance && std::abs(a.minY() - b.minY()) <= tolerance &&
           std::abs(a.width() - b.width()) <= tolerance && std::abs(a.height() - b.height()) <= tolerance;
}

std::int64_t wholePoints(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= 0x1p63) {
        return INT64_MAX;
    }
    return value < -0x1p63 ? INT64_MIN : static_cast<std::int64_t>(value);
}

void to_json(nlohmann::json& json, const Size& size) {
    json = nlohmann::json::array({size.width, size.height});
}

void from_json(const nlohmann::json& json, Size& size) {
    const auto [width, height] = JsonCoding::numberPair(json);
    size = {width, height};
}

void to_json(nlohmann::json& json, const Rect& rect) {
    json = nlohmann::json::array({nlohmann::json::array({rect.origin.x, rect.origin.y}), rect.size});
}

void from_json(const nlohmann::json& json, Rect& rect) {
    JsonCoding::requireArrayOf(json, 2);
    const auto [x, y] = JsonCoding::numberPair(json[0]);
    rect = {{x, y}, json[1].get<Size>()};
}

} // namespace vantrel

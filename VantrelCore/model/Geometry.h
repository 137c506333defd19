// Points, sizes and rectangles in global screen coordinates: points (the unit), double precision, origin at
// the top left of the primary display, y pointing down.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>

namespace vantrel {

struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size&) const = default;
};

struct Rect {
    Point origin;
    Size size;

    bool operator==(const Rect&) const = default;

    [[nodiscard]] constexpr double minX() const { return origin.x; }
    [[nodiscard]] constexpr double minY() const { return origin.y; }
    [[nodiscard]] constexpr double maxX() const { return origin.x + size.width; }
    [[nodiscard]] constexpr double maxY() const { return origin.y + size.height; }
    [[nodiscard]] constexpr double width() const { return size.width; }
    [[nodiscard]] constexpr double height() const { return size.height; }
    [[nodiscard]] constexpr Point center() const {
        return {origin.x + size.width / 2, origin.y + size.height / 2};
    }
    // Also true when a dimension is NaN.
    [[nodiscard]] constexpr bool isEmpty() const { return !(size.width > 0 && size.height > 0); }
    [[nodiscard]] constexpr double area() const { return isEmpty() ? 0 : size.width * size.height; }
    // Includes the left and top edges, excludes the right and bottom ones.
    [[nodiscard]] constexpr bool contains(Point p) const {
        return p.x >= minX() && p.x < maxX() && p.y >= minY() && p.y < maxY();
    }
};

// The common part of two rectangles; an empty Rect{} if they do not overlap.
[[nodiscard]] Rect intersection(const Rect& a, const Rect& b);

// True when minimum x, minimum y, width and height each differ by at most `tolerance`.
[[nodiscard]] bool approxEqual(const Rect& a, const Rect& b, double tolerance);

// A coordinate truncated toward zero and clamped to the 64-bit range; NaN gives 0. A broken value from the
// window system must not crash the process.
[[nodiscard]] std::int64_t wholePoints(double value);

// A size is [width, height]; a rectangle [[x, y], [width, height]]. Decoding throws nlohmann's exceptions.
void to_json(nlohmann::json& json, const Size& size);
void from_json(const nlohmann::json& json, Size& size);
void to_json(nlohmann::json& json, const Rect& rect);
void from_json(const nlohmann::json& json, Rect& rect);

} // namespace vantrel

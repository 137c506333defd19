// What the demonstration measured of each window, and how it is shown.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::tools {

struct WindowStory {
    std::string name;
    std::string program;
    Rect before;
    // Absent when the window was gone.
    std::optional<Rect> unplugged;
    std::optional<Rect> after;
    // The steps in which its program changes size; 1 x 1 for most.
    Size increment{1, 1};
};

enum class Verdict : std::uint8_t {
    back,
    // At its place, in the nearest size that its program can take.
    nearest,
    away,
    gone,
};

namespace DemoTable {

inline constexpr double tolerance = 2;

// The largest difference of position or size, in points.
[[nodiscard]] double distance(const Rect& a, const Rect& b);
[[nodiscard]] Verdict verdict(const WindowStory& story);
[[nodiscard]] bool isBack(const WindowStory& story);
[[nodiscard]] std::string text(const std::vector<WindowStory>& stories);

} // namespace DemoTable

} // namespace vantrel::tools

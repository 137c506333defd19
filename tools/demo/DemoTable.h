// What the demo measured for each window, and the table that shows it.
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
    // Absent if the window no longer existed.
    std::optional<Rect> unplugged;
    std::optional<Rect> after;
    // The program's size increments; 1 x 1 for most.
    Size increment{1, 1};
    // "maximised, desktop 2"; empty for an ordinary window of the first desktop.
    std::string stateBefore = {};
    std::string stateAfter = {};
};

enum class Verdict : std::uint8_t {
    back,
    // In place, in the nearest size that its program accepts.
    nearest,
    away,
    // In place, but minimised or maximised otherwise, or on another desktop.
    otherState,
    gone,
};

namespace DemoTable {

inline constexpr double tolerance = 2;

// The largest difference in position or size, in points.
[[nodiscard]] double distance(const Rect& a, const Rect& b);
[[nodiscard]] Verdict verdict(const WindowStory& story);
[[nodiscard]] bool isBack(const WindowStory& story);
[[nodiscard]] std::string text(const std::vector<WindowStory>& stories);

} // namespace DemoTable

} // namespace vantrel::tools

// Which sizes a program's window can have, as it tells the window manager.
#pragma once

#include <cstdint>

namespace vantrel {

// All in pixels of the client's window, as in WM_NORMAL_HINTS with its defaults filled in.
struct SizeHints {
    std::int32_t minWidth = 1;
    std::int32_t minHeight = 1;
    // Zero: no limit.
    std::int32_t maxWidth = 0;
    std::int32_t maxHeight = 0;
    std::int32_t baseWidth = 0;
    std::int32_t baseHeight = 0;
    std::int32_t widthIncrement = 1;
    std::int32_t heightIncrement = 1;
    bool hasAspect = false;

    bool operator==(const SizeHints&) const = default;

    // Whether a window that was asked for `asked` and has `actual` cannot come any closer. Window managers
    // round to increments in different directions, so either neighbour counts.
    [[nodiscard]] bool explainWidth(double asked, double actual) const;
    [[nodiscard]] bool explainHeight(double asked, double actual) const;
};

} // namespace vantrel

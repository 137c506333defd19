// The size constraints that a program gives to the window manager.
#pragma once

#include <cstdint>

namespace vantrel {

// In pixels of the client window, from WM_NORMAL_HINTS with its defaults.
struct SizeHints {
    std::int32_t minWidth = 1;
    std::int32_t minHeight = 1;
    // Zero means no limit.
    std::int32_t maxWidth = 0;
    std::int32_t maxHeight = 0;
    std::int32_t baseWidth = 0;
    std::int32_t baseHeight = 0;
    std::int32_t widthIncrement = 1;
    std::int32_t heightIncrement = 1;
    bool hasAspect = false;

    bool operator==(const SizeHints&) const = default;

    // Whether the hints keep a window with size `actual` from getting closer to the requested size `asked`.
    // Window managers round to increments up or down, so both are accepted.
    [[nodiscard]] bool explainWidth(double asked, double actual) const;
    [[nodiscard]] bool explainHeight(double asked, double actual) const;
};

} // namespace vantrel

// A small picture of a window.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vantrel {

struct WindowPicture {
    int width = 0;
    int height = 0;
    // Row by row from the top, as 0xffRRGGBB.
    std::vector<std::uint32_t> pixels{};

    bool operator==(const WindowPicture&) const = default;

    // Scales an image of this size, whose rows follow each other without gaps, until its longer side is at
    // most `longest`. Each pixel is the mean of a few of those that it covers. Ignores transparency.
    [[nodiscard]] static WindowPicture scaled(std::span<const std::uint32_t> image, int width, int height,
                                              int longest);
};

} // namespace vantrel

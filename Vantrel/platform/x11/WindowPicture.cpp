#include "Vantrel/platform/x11/WindowPicture.h"

#include <algorithm>
#include <cstddef>

namespace vantrel {

namespace {

// Along each side of what a pixel covers. More would make no difference to the eye, but reading the image is
// most of the cost.
constexpr int mostSamples = 4;

// The positions of the samples for each pixel of a row or column that is `from` long and becomes `to` long.
std::vector<std::size_t> samples(int from, int to, int perPixel) {
    std::vector<std::size_t> positions;
    positions.reserve(static_cast<std::size_t>(to) * static_cast<std::size_t>(perPixel));
    const double step = static_cast<double>(from) / (to * perPixel);
    for (int i = 0; i < to * perPixel; ++i) {
        positions.push_back(static_cast<std::size_t>(std::min((i + 0.5) * step, from - 1.0)));
    }
    return positions;
}

} // namespace

WindowPicture WindowPicture::scaled(std::span<const std::uint32_t> image, int width, int height,
                                    int longest) {
    const double factor = std::min(1.0, static_cast<double>(longest) / std::max(width, height));
    WindowPicture picture{.width = std::max(1, static_cast<int>(width * factor)),
                          .height = std::max(1, static_cast<int>(height * factor))};
    const int perPixel = std::clamp(width / picture.width, 1, mostSamples);
    const auto columns = samples(width, picture.width, perPixel);
    const auto rows = samples(height, picture.height, perPixel);
    const auto count = static_cast<std::uint32_t>(perPixel * perPixel);
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    const auto side = static_cast<std::size_t>(perPixel);
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(picture.width); ++x) {
            // Two colours at once; 16 samples of 8 bits do not reach the next one.
            std::uint32_t redAndBlue = 0;
            std::uint32_t green = 0;
            for (std::size_t row = y * side; row < (y + 1) * side; ++row) {
                const std::size_t start = rows[row] * static_cast<std::size_t>(width);
                for (std::size_t column = x * side; column < (x + 1) * side; ++column) {
                    const std::uint32_t pixel = image[start + columns[column]];
                    redAndBlue += pixel & 0xff00ffU;
                    green += pixel & 0xff00U;
                }
            }
            const std::uint32_t red = (redAndBlue >> 16U) / count;
            const std::uint32_t blue = (redAndBlue & 0xffffU) / count;
            picture.pixels[y * static_cast<std::size_t>(picture.width) + x] =
                0xff000000U | red << 16U | ((green >> 8U) / count) << 8U | blue;
        }
    }
    return picture;
}

} // namespace vantrel

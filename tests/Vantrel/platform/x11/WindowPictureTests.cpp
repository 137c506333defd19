// Scaling the pictures of windows down.
#include "Vantrel/platform/x11/WindowPicture.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

TEST(WindowPicture, IsTheMeanOfWhatEachPixelCovers) {
    // Stripes of black and white on the left, red on the right.
    constexpr int width = 800;
    constexpr int height = 200;
    std::vector<std::uint32_t> image;
    for (int pixel = 0; pixel < width * height; ++pixel) {
        const int x = pixel % width;
        image.push_back(x >= 400 ? 0x00ff0000U : x / 4 % 2 == 0 ? 0x00ffffffU : 0U);
    }
    const auto picture = WindowPicture::scaled(image, width, height, 100);
    EXPECT_EQ(picture.width, 100);
    EXPECT_EQ(picture.height, 25);
    ASSERT_EQ(picture.pixels.size(), 2500U);
    EXPECT_EQ(picture.pixels.front(), 0xff7f7f7fU);
    EXPECT_EQ(picture.pixels.back(), 0xffff0000U);

    // Nothing is enlarged, and a line stays a line.
    EXPECT_EQ(WindowPicture::scaled(std::vector<std::uint32_t>{1, 2, 3}, 3, 1, 100),
              (WindowPicture{3, 1, {0xff000001U, 0xff000002U, 0xff000003U}}));
    EXPECT_EQ(WindowPicture::scaled(std::vector<std::uint32_t>(5000, 0x112233U), 1, 5000, 320),
              (WindowPicture{1, 320, std::vector<std::uint32_t>(320, 0xff112233U)}));
}

} // namespace
} // namespace vantrel

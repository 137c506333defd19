#include "VantrelCore/studio/CanvasGeometry.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace vantrel {

namespace {

std::vector<DisplayInfo> desk(const std::vector<Rect>& frames) {
    std::vector<DisplayInfo> displays;
    for (const Rect& frame : frames) {
        DisplayInfo display;
        display.frame = frame;
        display.visibleFrame = Rect{{frame.minX(), frame.minY() + 25}, {frame.width(), frame.height() - 25}};
        displays.push_back(display);
    }
    return displays;
}

const std::pair<const char*, std::vector<DisplayInfo>> desks[] = {
    {"one", desk({{{0, 0}, {1440, 900}}})},
    {"laptop with a monitor above its right half",
     desk({{{0, 0}, {1440, 900}}, {{700, -1440}, {2560, 1440}}})},
    {"all coordinates negative", desk({{{-3840, -2160}, {1920, 1080}}, {{-1920, -1500}, {1920, 1080}}})},
    {"8K beside 800 x 600", desk({{{0, 0}, {7680, 4320}}, {{7680, 3720}, {800, 600}}})},
    {"portrait between landscapes",
     desk({{{0, 0}, {1920, 1080}}, {{1920, -400}, {1080, 1920}}, {{3000, 0}, {1920, 1080}}})},
    {"not touching", desk({{{0, 0}, {1000, 800}}, {{1500, 900}, {1000, 800}}})},
    {"mirrored", desk({{{0, 0}, {1920, 1080}}, {{0, 0}, {1920, 1080}}})},
    {"overlapping", desk({{{0, 0}, {1920, 1080}}, {{960, 300}, {1920, 1080}}, {{2880, 0}, {800, 600}}})},
    {"six in two rows", desk({{{0, 0}, {1920, 1080}},
                              {{1920, 0}, {1920, 1080}},
                              {{3840, 0}, {1920, 1080}},
                              {{0, 1080}, {1920, 1080}},
                              {{1920, 1080}, {1920, 1080}},
                              {{3840, 1080}, {1920, 1080}}})},
};

void expectNear(const Rect& actual, const Rect& expected, double tolerance) {
    EXPECT_TRUE(approxEqual(actual, expected, tolerance))
        << actual.minX() << "," << actual.minY() << " " << actual.width() << "x" << actual.height()
        << " instead of " << expected.minX() << "," << expected.minY() << " " << expected.width() << "x"
        << expected.height();
}

TEST(CanvasGeometry, BothDirectionsAreInverseForEverythingOnADisplay) {
    for (const auto& [name, displays] : desks) {
        for (const Size canvas : {Size{348, 140}, Size{1200, 700}, Size{20, 10}}) {
            SCOPED_TRACE(std::string(name) + " on " + std::to_string(canvas.width));
            const CanvasGeometry geometry(displays, canvas);
            for (const DisplayInfo& display : displays) {
                for (const double across : {0.001, 0.26, 0.49, 0.999}) {
                    for (const double down : {0.001, 0.49, 0.999}) {
                        const Point point{display.frame.minX() + display.frame.width() * across,
                                          display.frame.minY() + display.frame.height() * down};
                        const Rect window{{point.x - 300, point.y - 200}, {600, 400}};
                        expectNear(geometry.toScreen(geometry.toCanvas(window)), window, 0.5);
                        const Point drawn = geometry.toCanvas(point);
                        expectNear({geometry.toScreen(drawn), {}}, {point, {}}, 0.5);
                        EXPECT_EQ(geometry.regionAtCanvas(drawn), geometry.regionAtScreen(point));
                    }
                }
            }
        }
    }
}

TEST(CanvasGeometry, KeepsProportionsAndArrangementCentredOnTheCanvas) {
    constexpr Size canvas{600, 300};
    constexpr CanvasGeometry::Options options{.gap = 10, .margin = 4, .labelHeight = 24};
    for (const auto& [name, displays] : desks) {
        SCOPED_TRACE(name);
        const CanvasGeometry geometry(displays, canvas, options);
        const auto& regions = geometry.regions();
        ASSERT_EQ(regions.size(), displays.size());
        const Rect& all = geometry.bounds();
        EXPECT_NEAR(all.center().x, 300, 0.01);
        EXPECT_NEAR(all.center().y, 150, 0.01);
        // One side fills the canvas up to the margin.
        EXPECT_NEAR(std::min(all.minX(), all.minY()), 4, 0.01);
        for (std::size_t i = 0; i < regions.size(); ++i) {
            const Rect& frame = regions[i].frame;
            EXPECT_NEAR(frame.width(), displays[i].frame.width() * geometry.scale(), 0.01);
            EXPECT_GE(frame.minX(), all.minX() - 0.01);
            EXPECT_LE(frame.maxX(), all.maxX() + 0.01);
            EXPECT_LE(frame.maxY() + options.labelHeight, all.maxY() + 0.01);
            EXPECT_NEAR(regions[i].usable.minY() - frame.minY(), 25 * geometry.scale(), 0.01);
            for (std::size_t j = 0; j < regions.size(); ++j) {
                if (displays[j].frame.maxX() <= displays[i].frame.minX()) {
                    EXPECT_GE(frame.minX() - regions[j].frame.maxX(), options.gap - 0.01);
                }
                if (displays[j].frame.maxY() <= displays[i].frame.minY()) {
                    EXPECT_GE(frame.minY() - regions[j].frame.maxY(), options.gap - 0.01);
                }
            }
        }
    }
}

TEST(CanvasGeometry, ADisplayWithAnotherBelowItCarriesItsLabelInside) {
    const CanvasGeometry six(desks[8].second, {600, 300});
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(six.regions()[i].isLabelInside, i < 3);
    }
    const CanvasGeometry apart(desks[5].second, {600, 300});
    EXPECT_FALSE(apart.regions()[0].isLabelInside);
}

TEST(CanvasGeometry, WithoutDisplaysEverythingMapsToItself) {
    const CanvasGeometry geometry({}, {600, 300});
    const Rect rect{{10, 20}, {30, 40}};
    EXPECT_EQ(geometry.toScreen(geometry.toCanvas(rect)), rect);
    EXPECT_EQ(geometry.regionAtCanvas({1, 1}), std::nullopt);
    EXPECT_TRUE(geometry.regions().empty());
}

} // namespace

} // namespace vantrel

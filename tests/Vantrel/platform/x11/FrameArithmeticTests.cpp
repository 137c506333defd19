#include "Vantrel/platform/x11/FrameArithmetic.h"

#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>

namespace vantrel {
namespace {

// What a window manager makes of a move-resize request with a position and gravity NorthWest.
FrameParts obeyed(const MoveResize& request, FrameParts parts) {
    auto& [origin, size] = parts.client;
    origin.x = request.x.value() + parts.decoration.left;
    origin.y = request.y.value() + parts.decoration.top;
    if (request.width) {
        size = {static_cast<double>(*request.width), static_cast<double>(request.height.value())};
    }
    return parts;
}

constexpr FrameParts decorated{.client = {{101, 220}, {640, 480}},
                               .decoration = {.left = 1, .right = 1, .top = 20, .bottom = 5}};

TEST(FrameArithmetic, TheFrameHasTheDecorationButNotTheShadow) {
    EXPECT_EQ(FrameArithmetic::visibleFrame(decorated), (Rect{{100, 200}, {642, 505}}));
    const FrameParts shadowed{.client = {{74, 77}, {692, 532}},
                              .shadow = {.left = 26, .right = 26, .top = 23, .bottom = 29}};
    EXPECT_EQ(FrameArithmetic::visibleFrame(shadowed), (Rect{{100, 100}, {640, 480}}));
}

RC_GTEST_PROP(FrameArithmetic, AnObeyedRequestPutsTheVisibleFrameOnTheTarget, ()) {
    const auto border = [] { return *rc::gen::inRange(0, 40); };
    const auto extents = [&] {
        return Extents{.left = border(), .right = border(), .top = border(), .bottom = border()};
    };
    const auto place = [] { return static_cast<double>(*rc::gen::inRange(-2000, 6000)); };
    const auto length = [] { return static_cast<double>(*rc::gen::inRange(200, 3000)); };
    const FrameParts parts{
        .client = {{place(), place()}, {length(), length()}}, .decoration = extents(), .shadow = extents()};
    const FrameTarget target{.position = Point{place(), place()}, .size = Size{length(), length()}};
    const auto request = FrameArithmetic::request(target, parts);
    const auto moved = obeyed(request, parts);
    RC_ASSERT(FrameArithmetic::visibleFrame(moved) == (Rect{*target.position, *target.size}));
    const FrameParts withShadow{.client = moved.client, .decoration = moved.decoration};
    RC_ASSERT(FrameArithmetic::outerArea(request, parts) == FrameArithmetic::visibleFrame(withShadow));
}

TEST(FrameArithmetic, OnlyAChangedSizeIsAskedForAndNeverWithoutThePosition) {
    using FrameArithmetic::request;
    EXPECT_EQ(request({.position = Point{7, 8}, .size = Size{642, 505}}, decorated),
              (MoveResize{.x = 7, .y = 8}));
    EXPECT_EQ(request({.size = Size{502, 405}}, decorated),
              (MoveResize{.x = 100, .y = 200, .width = 500U, .height = 380U}));
}

TEST(FrameArithmetic, BrokenNumbersStayWithinWhatTheProtocolCanSay) {
    using FrameArithmetic::request;
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(request({.position = Point{1e300, -1e300}, .size = Size{-5, infinity}}, decorated),
              (MoveResize{.x = 32767, .y = -32768, .width = 1U, .height = 32767U}));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(request({.position = Point{nan, 3}, .size = Size{nan, nan}}, decorated), (MoveResize{.y = 3}));
}

TEST(FrameArithmetic, ATargetIsReachedWhenItsGivenHalvesAreToTheWholePixel) {
    const Rect frame{{100, 200}, {640, 480}};
    EXPECT_TRUE(FrameArithmetic::isAt({.position = Point{100.5, 199.6}}, frame));
    EXPECT_FALSE(FrameArithmetic::isAt({.position = Point{101, 200}}, frame));
    EXPECT_TRUE(FrameArithmetic::isAt({.size = Size{640, 480}}, frame));
    EXPECT_FALSE(FrameArithmetic::isAt({.position = Point{100, 200}, .size = Size{640, 479}}, frame));
}

TEST(FrameArithmetic, OnlyAPlaceThatFillsAMonitorCanBeAMaximizedOne) {
    const std::array<Rect, 2> monitors{Rect{{0, 0}, {1920, 1080}}, Rect{{1920, 0}, {2560, 1440}}};
    const auto fills = [&](std::optional<Point> position, std::optional<Size> size) {
        return FrameArithmetic::fillsMonitor({.position = position, .size = size}, monitors);
    };
    EXPECT_TRUE(fills(Point{0, 0}, Size{1920, 1080}));
    EXPECT_TRUE(fills(Point{1920, 30}, Size{2560, 1410})) << "below a panel";
    EXPECT_TRUE(fills(Point{-4, -4}, Size{1928, 1088})) << "borders over the edge";
    EXPECT_TRUE(fills(Point{1920, 30}, std::nullopt)) << "a position alone";
    EXPECT_FALSE(fills(Point{0, 0}, Size{960, 1080})) << "the left half";
    EXPECT_FALSE(fills(Point{1000, 0}, Size{1920, 1080})) << "across both";
    EXPECT_FALSE(fills(Point{700, 300}, std::nullopt));
}

} // namespace
} // namespace vantrel

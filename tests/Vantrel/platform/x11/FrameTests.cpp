// Frames, sizes and usable areas: pure arithmetic.
#include "Vantrel/platform/x11/FrameArithmetic.h"
#include "Vantrel/platform/x11/SizeHints.h"
#include "Vantrel/platform/x11/Struts.h"

#include <array>
#include <gmock/gmock.h>
#include <limits>
#include <rapidcheck/gtest.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST(FrameArithmetic, RequestsASizeOnlyWhenItChangesAndAlwaysWithAPosition) {
    using FrameArithmetic::request;
    EXPECT_EQ(request({.position = Point{7, 8}, .size = Size{642, 505}}, decorated),
              (MoveResize{.x = 7, .y = 8}));
    EXPECT_EQ(request({.size = Size{502, 405}}, decorated),
              (MoveResize{.x = 100, .y = 200, .width = 500U, .height = 380U}));
}

TEST(FrameArithmetic, ClampsBrokenNumbersToTheProtocolsRange) {
    using FrameArithmetic::request;
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(request({.position = Point{1e300, -1e300}, .size = Size{-5, infinity}}, decorated),
              (MoveResize{.x = 32767, .y = -32768, .width = 1U, .height = 32767U}));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(request({.position = Point{nan, 3}, .size = Size{nan, nan}}, decorated), (MoveResize{.y = 3}));
}

TEST(FrameArithmetic, ATargetIsReachedWhenItsWholePixelsMatch) {
    const Rect frame{{100, 200}, {640, 480}};
    EXPECT_TRUE(FrameArithmetic::isAt({.position = Point{100.5, 199.6}}, frame));
    EXPECT_FALSE(FrameArithmetic::isAt({.position = Point{101, 200}}, frame));
    EXPECT_TRUE(FrameArithmetic::isAt({.size = Size{640, 480}}, frame));
    EXPECT_FALSE(FrameArithmetic::isAt({.position = Point{100, 200}, .size = Size{640, 479}}, frame));
}

TEST(FrameArithmetic, OnlyAFrameThatFillsAMonitorCanBeMaximized) {
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

TEST(SizeHints, ATerminalBetweenTwoCharactersCannotComeCloser) {
    const SizeHints terminal{.minWidth = 10, .baseWidth = 4, .widthIncrement = 6};
    EXPECT_TRUE(terminal.explainWidth(489, 484));
    EXPECT_TRUE(terminal.explainWidth(487, 490)) << "rounded up";
    EXPECT_FALSE(terminal.explainWidth(489, 483)) << "a whole character less than it could be";
}

TEST(SizeHints, OnlySizeLimitsExplainAMiss) {
    const SizeHints limited{.minWidth = 300, .minHeight = 200, .maxWidth = 800, .maxHeight = 600};
    EXPECT_TRUE(limited.explainWidth(100, 300));
    EXPECT_TRUE(limited.explainHeight(900, 600));
    EXPECT_FALSE(limited.explainWidth(500, 300));
    EXPECT_FALSE(limited.explainHeight(500, 600));
    EXPECT_FALSE(SizeHints{}.explainWidth(500, 640));
    EXPECT_TRUE(SizeHints{}.explainWidth(500, 500));
}

TEST(SizeHints, SurviveContradictoryNumbers) {
    const SizeHints nonsense{.minWidth = 900, .maxWidth = -5, .widthIncrement = 0};
    EXPECT_TRUE(nonsense.explainWidth(500, 900));
    const SizeHints crossed{.minWidth = 900, .maxWidth = 100, .widthIncrement = -7};
    EXPECT_TRUE(crossed.explainWidth(500, 900));
}

// A large monitor on the left, a lower one on its right, top edges aligned.
const Rect left{{0, 0}, {1280, 1024}};
const Rect right{{1280, 0}, {1600, 900}};
const Size screen{2880, 1024};

TEST(Struts, AreReadFromBothKindsOfProperty) {
    const std::array<std::uint32_t, 12> partial{0, 0, 30, 0, 0, 0, 0, 0, 1280, 2879, 0, 0};
    EXPECT_THAT(Struts::decode(partial),
                ElementsAre(Strut{.edge = Strut::Edge::top, .thickness = 30, .start = 1280, .end = 2880}));
    const std::array<std::uint32_t, 4> plain{0, 0, 0, 48};
    EXPECT_THAT(Struts::decode(plain), ElementsAre(Strut{.edge = Strut::Edge::bottom,
                                                         .thickness = 48,
                                                         .start = 0,
                                                         .end = std::numeric_limits<double>::infinity()}));
    const std::array<std::uint32_t, 3> nonsense{1, 2, 3};
    EXPECT_THAT(Struts::decode(nonsense), IsEmpty());
}

TEST(Struts, ReserveSpaceOnTheMonitorTheyEndIn) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::tuple<const char*, std::vector<Strut>, Rect, Rect> cases[] = {
        {"none", {}, left, right},
        {"top of the right", {{Strut::Edge::top, 30, 1280, 2880}}, left, {{1280, 30}, {1600, 870}}},
        // The lower monitor ends 124 above the screen's bottom.
        {"bottom of the right", {{Strut::Edge::bottom, 164, 1280, 2880}}, left, {{1280, 0}, {1600, 860}}},
        {"bottom of the left", {{Strut::Edge::bottom, 40, 0, 1280}}, {{0, 0}, {1280, 984}}, right},
        {"left edge of the right", {{Strut::Edge::left, 1330, 0, 900}}, left, {{1330, 0}, {1550, 900}}},
        {"right edge of the left", {{Strut::Edge::right, 1650, 0, 1024}}, {{0, 0}, {1230, 1024}}, right},
        {"two panels at one edge",
         {{Strut::Edge::top, 30, 0, 1280}, {Strut::Edge::top, 50, 0, 400}},
         {{0, 50}, {1280, 974}},
         right},
        {"whole edge",
         {{Strut::Edge::top, 20, 0, infinity}},
         {{0, 20}, {1280, 1004}},
         {{1280, 20}, {1600, 880}}},
        {"more than there is", {{Strut::Edge::top, 1000000, 0, 2880}}, left, right},
        {"nothing left between two",
         {{Strut::Edge::top, 700, 0, 1280}, {Strut::Edge::bottom, 700, 0, 1280}},
         left,
         right},
    };
    for (const auto& [name, struts, leftVisible, rightVisible] : cases) {
        EXPECT_EQ(Struts::visibleFrame(left, screen, struts), leftVisible) << name;
        EXPECT_EQ(Struts::visibleFrame(right, screen, struts), rightVisible) << name;
    }
}

TEST(WorkArea, AppliesOnlyToTheMonitorItCovers) {
    EXPECT_EQ(Struts::visibleFrame(left, std::nullopt), left);
    EXPECT_EQ(Struts::visibleFrame(left, Rect{{0, 24}, {2880, 1000}}), (Rect{{0, 24}, {1280, 1000}}));
    // xfwm4 4.18 gives the first monitor's area for the whole desk.
    EXPECT_EQ(Struts::visibleFrame(right, left), right);
}

} // namespace
} // namespace vantrel

#include "VantrelCore/studio/SnapEngine.h"

#include <gtest/gtest.h>
#include <limits>

namespace vantrel {

namespace {

using SnapEngine::ResizeEdges;

constexpr double threshold = SnapEngine::defaultThreshold;
// Far from the boxes below on all its lines: 0, 5000 and 10000.
const Rect bounds{{0, 0}, {10000, 10000}};

TEST(SnapEngine, AMovedBoxSnapsByMinimumEdgeThenCentreThenMaximumEdge) {
    using Lines = std::vector<double>;
    const Rect box{{1000, 2000}, {300, 300}};
    const auto lineAt = [](double x) { return Rect{{x, 3000}, {0, 0}}; };
    const std::tuple<const char*, Rect, std::vector<Rect>, Point, Lines, Lines> cases[] = {
        {"at the threshold", box, {lineAt(994)}, {994, 2000}, {994}, {}},
        {"beyond it", box, {lineAt(993.99)}, box.origin, {}, {}},
        {"left edge, the farther", box, {lineAt(1005), lineAt(1151)}, {1005, 2000}, {1005}, {}},
        {"centre, the farther", box, {lineAt(1151), lineAt(1300)}, {1001, 2000}, {1151}, {}},
        {"both axes", box, {{{1003, 2305}, {300, 100}}}, {1003, 2005}, {1003}, {2305}},
        {"bounds", {{4, 4997}, {300, 301}}, {}, {0, 5000}, {0}, {5000}},
        {"centre and far edge of the bounds", {{4852, 9701}, {300, 300}}, {}, {4850, 9700}, {5000}, {10000}},
    };
    for (const auto& [name, start, siblings, expected, verticalGuides, horizontalGuides] : cases) {
        SCOPED_TRACE(name);
        const auto result = SnapEngine::snapMove(start, bounds, siblings, threshold);
        EXPECT_EQ(result.frame, (Rect{expected, start.size}));
        EXPECT_EQ(result.verticalGuides, verticalGuides);
        EXPECT_EQ(result.horizontalGuides, horizontalGuides);
    }
}

TEST(SnapEngine, PrefersTheSmallerOfTwoEquallyNearLines) {
    EXPECT_EQ(SnapEngine::nearest(10, {13, 7, 13}, threshold), 7);
    EXPECT_EQ(SnapEngine::nearest(10, {7, 13, 11}, threshold), 11);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(SnapEngine::nearest(10, {nan, 12, nan, 11, nan}, threshold), 11);
    EXPECT_EQ(SnapEngine::nearest(10, {17, 3, nan}, threshold), std::nullopt);
}

TEST(SnapEngine, ClampingKeepsTheSizeAndAlignsOversizedBoxes) {
    const Rect area{{100, 100}, {500, 400}};
    EXPECT_EQ(SnapEngine::clampInside({{590, 0}, {50, 50}}, area), (Rect{{550, 100}, {50, 50}}));
    EXPECT_EQ(SnapEngine::clampInside({{300, 600}, {501, 401}}, area), (Rect{{100, 100}, {501, 401}}));
    const auto moved = SnapEngine::snapMove({{-3, 150}, {50, 50}}, bounds, {}, threshold, area);
    EXPECT_EQ(moved.frame, (Rect{{100, 150}, {50, 50}}));
    EXPECT_EQ(moved.verticalGuides, std::vector{0.0}) << "the line that was used, though clamping left it";
}

TEST(SnapEngine, AResizedBoxSnapsByDraggedEdgesAndKeepsItsMinimumSize) {
    const std::vector<Rect> siblings{{{950, 950}, {250, 250}}};
    const Rect behind{{1203, 1203}, {400, 400}};
    const std::tuple<const char*, Rect, ResizeEdges, Rect, std::vector<double>> cases[] = {
        {"no edge near", behind, ResizeEdges::right | ResizeEdges::bottom, behind, {}},
        {"top left", behind, ResizeEdges::left | ResizeEdges::top, {{1200, 1200}, {403, 403}}, {1200}},
        {"top alone", behind, ResizeEdges::top, {{1203, 1200}, {400, 403}}, {}},
        {"right alone", {{1000, 900}, {203, 303}}, ResizeEdges::right, {{1000, 900}, {200, 303}}, {1200}},
        {"narrow", {{1000, 2000}, {10, 90}}, ResizeEdges::right, {{1000, 2000}, {24, 90}}, {}},
        {"narrow, left", {{1020, 2000}, {10, 90}}, ResizeEdges::left, {{1006, 2000}, {24, 90}}, {}},
        {"past the right", {{1040, 2000}, {-40, 90}}, ResizeEdges::left, {{976, 2000}, {24, 90}}, {}},
        {"low", {{1000, 2000}, {90, 10}}, ResizeEdges::bottom, {{1000, 2000}, {90, 24}}, {}},
        {"low, top", {{1000, 2020}, {90, 10}}, ResizeEdges::top, {{1000, 2006}, {90, 24}}, {}},
    };
    for (const auto& [name, dragged, edges, expected, guides] : cases) {
        SCOPED_TRACE(name);
        const auto result = SnapEngine::snapResize(dragged, edges, bounds, siblings, threshold);
        EXPECT_EQ(result.frame, expected);
        EXPECT_EQ(result.verticalGuides, guides);
    }
}

} // namespace
} // namespace vantrel

#include "VantrelCore/studio/SnapEngine.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <rapidcheck/gtest.h>

namespace vantrel {

void showValue(const Rect& rect, std::ostream& stream) {
    stream << "[" << rect.minX() << ", " << rect.minY() << ", " << rect.width() << ", " << rect.height()
           << "]";
}

namespace {

using SnapEngine::ResizeEdges;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double threshold = SnapEngine::defaultThreshold;
// Far from the boxes below on all its lines: 0, 5000 and 10000.
const Rect bounds{{0, 0}, {10000, 10000}};

SnapEngine::SnapResult move(const Rect& rect, const std::vector<Rect>& siblings) {
    return SnapEngine::snapMove(rect, bounds, siblings, threshold);
}

TEST(SnapEngine, AnEdgeSnapsAtTheThresholdAndNotBeyond) {
    const Rect sibling{{1000, 3000}, {200, 100}};
    const auto near = move({{1206, 2000}, {300, 300}}, {sibling});
    EXPECT_EQ(near.frame, (Rect{{1200, 2000}, {300, 300}}));
    EXPECT_THAT(near.verticalGuides, ElementsAre(1200));
    EXPECT_THAT(near.horizontalGuides, IsEmpty());

    const Rect far{{1206.01, 2000}, {300, 300}};
    EXPECT_EQ(move(far, {sibling}).frame, far);
}

TEST(SnapEngine, TheMinimumEdgeGoesBeforeTheCentreAndTheCentreBeforeTheMaximum) {
    const auto lineAt = [](double x) { return Rect{{x, 3000}, {0, 0}}; };
    const Rect box{{1000, 2000}, {300, 300}};
    // Lines 5 points from the left edge, 1 from the centre, 0 from the right edge.
    EXPECT_EQ(move(box, {lineAt(1005), lineAt(1151), lineAt(1300)}).frame.origin.x, 1005);
    EXPECT_EQ(move(box, {lineAt(1151), lineAt(1300)}).frame.origin.x, 1001);
    const auto byRightEdge = move(box, {lineAt(1303)});
    EXPECT_EQ(byRightEdge.frame, (Rect{{1003, 2000}, {300, 300}}));
    EXPECT_THAT(byRightEdge.verticalGuides, ElementsAre(1303));
}

TEST(SnapEngine, WithoutSiblingsTheBoundsAndTheirCentreAreLines) {
    EXPECT_EQ(move({{4, 4997}, {300, 301}}, {}).frame.origin, (Point{0, 5000}));
    // The box's centre on the centre line, its bottom edge on the bottom.
    const auto centred = move({{4852, 9701}, {300, 300}}, {});
    EXPECT_EQ(centred.frame.origin, (Point{4850, 9700}));
    EXPECT_THAT(centred.verticalGuides, ElementsAre(5000));
    EXPECT_THAT(centred.horizontalGuides, ElementsAre(10000));
}

TEST(SnapEngine, OfTwoLinesAtTheSameDistanceTheSmallerWins) {
    EXPECT_EQ(SnapEngine::nearest(10, {13, 7, 13}, threshold), 7);
    EXPECT_EQ(SnapEngine::nearest(10, {7, 13, 11}, threshold), 11);
    EXPECT_EQ(SnapEngine::nearest(10, {17, 3}, threshold), std::nullopt);
    EXPECT_EQ(SnapEngine::nearest(10, {}, threshold), std::nullopt);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(SnapEngine::nearest(10, {nan, 12, nan, 11, nan}, threshold), 11);
}

TEST(SnapEngine, ClampingKeepsTheSizeAndShowsOversizedBoxesFromTheirMinimumEdge) {
    const Rect area{{100, 100}, {500, 400}};

    const struct {
        Rect box;
        Point expected;
    } cases[] = {
        {{{0, 0}, {50, 50}}, {100, 100}},       {{{590, 480}, {50, 50}}, {550, 450}},
        {{{200, 300}, {50, 50}}, {200, 300}},   {{{200, 300}, {600, 50}}, {100, 300}},
        {{{300, 300}, {500, 400}}, {100, 100}}, {{{300, 0}, {501, 401}}, {100, 100}},
    };

    for (const auto& [box, expected] : cases) {
        EXPECT_EQ(SnapEngine::clampInside(box, area), (Rect{expected, box.size}));
    }
    const auto moved = SnapEngine::snapMove({{-3, 50}, {50, 50}}, bounds, {}, threshold, area);
    EXPECT_EQ(moved.frame, (Rect{{100, 100}, {50, 50}}));
    EXPECT_THAT(moved.verticalGuides, ElementsAre(0)) << "the line that was used, though clamping left it";
}

TEST(SnapEngine, OnlyDraggedEdgesSnapWhenResizing) {
    const Rect sibling{{1000, 1000}, {200, 200}};
    const Rect box{{1203, 1203}, {400, 400}};
    const auto resize = [&](ResizeEdges edges) {
        return SnapEngine::snapResize(box, edges, bounds, {sibling}, threshold);
    };
    EXPECT_EQ(resize(ResizeEdges::right | ResizeEdges::bottom).frame, box);
    const auto corner = resize(ResizeEdges::left | ResizeEdges::top);
    EXPECT_EQ(corner.frame, (Rect{{1200, 1200}, {403, 403}}));
    EXPECT_THAT(corner.verticalGuides, ElementsAre(1200));
    EXPECT_THAT(corner.horizontalGuides, ElementsAre(1200));
    EXPECT_EQ(resize(ResizeEdges::top).frame, (Rect{{1203, 1200}, {400, 403}}));
}

TEST(SnapEngine, AResizedBoxKeepsItsMinimumSizeAtTheEdgeThatIsNotDragged) {
    const struct {
        Rect dragged;
        ResizeEdges edges;
        Rect expected;
    } cases[] = {
        {{{1000, 2000}, {10, 90}}, ResizeEdges::right, {{1000, 2000}, {24, 90}}},
        {{{1020, 2000}, {10, 90}}, ResizeEdges::left, {{1006, 2000}, {24, 90}}},
        // Dragged past the opposite edge, which stands at 1000.
        {{{1040, 2000}, {-40, 90}}, ResizeEdges::left, {{976, 2000}, {24, 90}}},
        {{{1000, 2000}, {90, 10}}, ResizeEdges::bottom, {{1000, 2000}, {90, 24}}},
        {{{1000, 2020}, {90, 10}}, ResizeEdges::top, {{1000, 2006}, {90, 24}}},
        {{{1000, 2000}, {24, 24}}, ResizeEdges::right | ResizeEdges::bottom, {{1000, 2000}, {24, 24}}},
    };

    for (const auto& [dragged, edges, expected] : cases) {
        EXPECT_EQ(SnapEngine::snapResize(dragged, edges, bounds, {}, threshold).frame, expected);
    }
}

double anyHalfPoint(int low, int high) {
    return *rc::gen::inRange(low * 2, high * 2) / 2.0;
}

Rect anyRect(int minSize) {
    return {{anyHalfPoint(-200, 200), anyHalfPoint(-200, 200)},
            {anyHalfPoint(minSize, 200), anyHalfPoint(minSize, 200)}};
}

std::vector<Rect> anySiblings() {
    std::vector<Rect> siblings(static_cast<std::size_t>(*rc::gen::inRange(0, 6)));
    std::ranges::generate(siblings, [] { return anyRect(0); });
    return siblings;
}

RC_GTEST_PROP(SnapEngine, MovingSnapsByTheThresholdAtMostAndKeepsTheSize, ()) {
    const Rect rect = anyRect(0);
    const auto result = SnapEngine::snapMove(rect, anyRect(0), anySiblings(), threshold);
    RC_ASSERT(result.frame.size == rect.size);
    RC_ASSERT(std::abs(result.frame.minX() - rect.minX()) <= threshold);
    RC_ASSERT(std::abs(result.frame.minY() - rect.minY()) <= threshold);
    RC_ASSERT(result.verticalGuides.size() == 1U || result.frame.minX() == rect.minX());
}

RC_GTEST_PROP(SnapEngine, ResizingMovesDraggedEdgesByTheThresholdAtMostAndOthersNotAtAll, ()) {
    // Large enough that the minimum size never decides.
    const Rect rect = anyRect(40);
    const ResizeEdges edges{*rc::gen::inRange(0, 16)};
    const auto frame = SnapEngine::snapResize(rect, edges, anyRect(0), anySiblings(), threshold).frame;
    const auto check = [&](ResizeEdges edge, double before, double after) {
        RC_ASSERT(std::abs(after - before) <= (edges.contains(edge) ? threshold : 0));
    };
    check(ResizeEdges::left, rect.minX(), frame.minX());
    check(ResizeEdges::right, rect.maxX(), frame.maxX());
    check(ResizeEdges::top, rect.minY(), frame.minY());
    check(ResizeEdges::bottom, rect.maxY(), frame.maxY());
}

RC_GTEST_PROP(SnapEngine, AClampedBoxThatFitsLiesInside, ()) {
    const Rect area = anyRect(0);
    const Rect rect = anyRect(0);
    const Rect clamped = SnapEngine::clampInside(rect, area);
    RC_ASSERT(clamped.size == rect.size);
    RC_ASSERT(clamped.minX() >= area.minX());
    RC_ASSERT(clamped.maxX() <= area.maxX() || rect.width() > area.width());
    RC_ASSERT(clamped.minY() >= area.minY());
    RC_ASSERT(clamped.maxY() <= area.maxY() || rect.height() > area.height());
}

} // namespace
} // namespace vantrel

#include "VantrelCore/model/Geometry.h"

#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace vantrel {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Geometry, CoordinatesAreCutTowardZeroAndStopAtTheEndsOfTheRange) {
    const struct {
        double value;
        std::int64_t whole;
    } rows[] = {
        {0.999, 0},
        {-1.5, -1},
        {1e300, INT64_MAX},
        {0x1p63, INT64_MAX},
        {-0x1p63, INT64_MIN},
        {infinity, INT64_MAX},
        {-infinity, INT64_MIN},
        {notANumber, 0},
    };
    for (const auto& [value, whole] : rows) {
        EXPECT_EQ(wholePoints(value), whole) << value;
    }
}

TEST(Geometry, RectanglesShareOnlyWhatHasArea) {
    const Rect a{{0, 0}, {100, 100}};
    EXPECT_EQ(intersection(a, {{50, -50}, {100, 100}}), (Rect{{50, 0}, {50, 50}}));
    EXPECT_EQ(intersection(a, {{10, 10}, {20, 20}}), (Rect{{10, 10}, {20, 20}}));
    EXPECT_EQ(intersection(a, {{100, 0}, {50, 50}}), Rect{});
    EXPECT_EQ(intersection(a, {{-50, -50}, {20, 20}}), Rect{});
    EXPECT_EQ(intersection(a, {{notANumber, 0}, {20, 20}}), Rect{});
}

TEST(Geometry, FramesAreApproximatelyEqualWhenEveryValueIsWithinTolerance) {
    const Rect frame{{10, 20}, {300, 400}};
    for (const Rect& other : {Rect{{14, 20}, {300, 400}}, Rect{{10, 16}, {300, 400}},
                              Rect{{10, 20}, {304, 400}}, Rect{{10, 20}, {300, 396}}}) {
        EXPECT_TRUE(approxEqual(frame, other, 4));
        EXPECT_FALSE(approxEqual(frame, other, 3.99));
    }
    EXPECT_FALSE(approxEqual(frame, {{notANumber, 20}, {300, 400}}, 4));
}

TEST(Geometry, TheRightAndBottomEdgesAreOutside) {
    const Rect rect{{-10, -10}, {20, 20}};
    EXPECT_TRUE(rect.contains({-10, -10}));
    EXPECT_TRUE(rect.contains({9.99, 9.99}));
    EXPECT_FALSE(rect.contains({10, 0}));
    EXPECT_FALSE(rect.contains({0, 10}));
}

TEST(Geometry, ARectangleIsTwoPairsInJson) {
    EXPECT_EQ(nlohmann::json(Rect{{-1.5, 25}, {1440, 875}}).dump(), "[[-1.5,25.0],[1440.0,875.0]]");
    EXPECT_EQ(nlohmann::json(Size{3, 4}).dump(), "[3.0,4.0]");
    EXPECT_EQ(nlohmann::json::parse("[[1, 2], [3, 4.5]]").get<Rect>(), (Rect{{1, 2}, {3, 4.5}}));
    for (const char* text : {"[1, 2, 3, 4]", "[[1, 2]]", "[[1, 2], [3]]", "[[1, 2], [3, 4], [5, 6]]",
                             "[[1, 2], [3, \"4\"]]", "[[1, null], [3, 4]]", "{}", "[]"}) {
        EXPECT_ANY_THROW(static_cast<void>(nlohmann::json::parse(text).get<Rect>())) << text;
    }
}

} // namespace

} // namespace vantrel

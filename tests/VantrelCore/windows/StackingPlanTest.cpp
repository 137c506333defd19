#include "VantrelCore/windows/StackingPlan.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using StackingPlan::Step;
using Windows = std::vector<WindowID>;

constexpr WindowID a{1};
constexpr WindowID b{2};
constexpr WindowID c{3};
constexpr WindowID d{4};
constexpr WindowID gone{9};

TEST(StackingPlan, OrdersTheWantedWindowsAmongThemselvesBehindTheFrontMostOne) {
    struct Case {
        Windows stack;
        Windows wanted;
        std::vector<Step> steps;
    };
    const Case cases[] = {
        {{a, b, c, d}, {b, c, d}, {}},
        {{a, b, c, d}, {d, b}, {{d, b}}},
        {{a, b, c, d}, {d, c, b}, {{c, b}, {d, c}}},
        {{a, b, c, d}, {d, a, gone, b}, {{d, b}}},
        {{a, b, c, d}, {b, a}, {}},
        {{a, b}, {}, {}},
        {{}, {a, b}, {}},
    };
    for (const auto& [stack, wanted, steps] : cases) {
        EXPECT_EQ(StackingPlan::steps(stack, wanted), steps);
    }
}

} // namespace
} // namespace vantrel

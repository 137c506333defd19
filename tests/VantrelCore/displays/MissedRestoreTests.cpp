#include "VantrelCore/displays/MissedRestore.h"

#include <gtest/gtest.h>
#include <tuple>

namespace vantrel {
namespace {

TEST(MissedRestore, OnlyAWindowThatLeftItsPlaceHasMoved) {
    const Rect here{{0, 0}, {400, 300}};
    const Rect there{{900, 0}, {400, 300}};
    using Windows = std::vector<WindowOutline>;
    const std::tuple<Windows, Windows, bool> cases[] = {
        {{{1, here}, {1, there}}, {{1, there}, {1, here}}, false},
        {{{1, here}}, {{1, there}}, true},
        {{{1, here}}, {{1, there}, {1, here}}, false},
        {{{1, here}, {1, there}}, {{1, there}}, false},
        {{{1, here}, {1, here}}, {{1, here}, {1, there}}, true},
        {{{1, here}}, {{2, there}}, false},
    };
    for (const auto& [before, now, hasMoved] : cases) {
        EXPECT_EQ(MissedRestore::hasAnyMoved(before, now), hasMoved) << (&before - &std::get<0>(cases[0]));
    }
}

} // namespace
} // namespace vantrel

#include "VantrelCore/windows/DriftGuard.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

Layout layoutWithWindowAt(double x) {
    Layout layout;
    layout.configID = "desk";
    layout.layoutName = Layout::defaultName;
    layout.windows.emplace_back();
    layout.windows.back().frame = {{x, 0}, {800, 600}};
    return layout;
}

const Layout pinned = layoutWithWindowAt(0);
const Layout drifted = layoutWithWindowAt(2.01);
const Layout withinTolerance = layoutWithWindowAt(2.0);

TEST(DriftGuard, ActsAfterTheRequiredNumberOfDriftsInARowAndStartsOver) {
    DriftGuard guard(3);
    EXPECT_FALSE(guard.observe(drifted, pinned));
    EXPECT_FALSE(guard.observe(drifted, pinned));
    EXPECT_FALSE(guard.observe(withinTolerance, pinned)) << "a match starts the count over";
    EXPECT_EQ(guard.driftCount(), 0);
    for (int round = 0; round < 2; ++round) {
        EXPECT_FALSE(guard.observe(drifted, pinned));
        EXPECT_FALSE(guard.observe(drifted, pinned));
        EXPECT_TRUE(guard.observe(drifted, pinned));
    }
}

TEST(DriftGuard, ResetForgetsEarlierDrifts) {
    DriftGuard guard(2);
    EXPECT_FALSE(guard.observe(drifted, pinned));
    guard.reset();
    EXPECT_FALSE(guard.observe(drifted, pinned));
    EXPECT_TRUE(guard.observe(drifted, pinned));
}

TEST(DriftGuard, FewerThanOneRequiredObservationCountsAsOne) {
    for (const int required : {1, 0, -7}) {
        DriftGuard guard(required);
        EXPECT_EQ(guard.required(), 1);
        EXPECT_TRUE(guard.observe(drifted, pinned));
        EXPECT_FALSE(guard.observe(pinned, pinned));
    }
}

} // namespace
} // namespace vantrel

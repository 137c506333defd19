#include "Vantrel/platform/x11/SizeHints.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(SizeHints, ATerminalBetweenTwoCharactersCannotComeCloser) {
    const SizeHints terminal{.minWidth = 10, .baseWidth = 4, .widthIncrement = 6};
    EXPECT_TRUE(terminal.explainWidth(489, 484));
    EXPECT_TRUE(terminal.explainWidth(487, 490)) << "rounded up";
    EXPECT_FALSE(terminal.explainWidth(489, 483)) << "a whole character less than it could be";
}

TEST(SizeHints, AProgramStopsAtItsSmallestAndLargestSizeAndHasNoExcuseWithout) {
    const SizeHints limited{.minWidth = 300, .minHeight = 200, .maxWidth = 800, .maxHeight = 600};
    EXPECT_TRUE(limited.explainWidth(100, 300));
    EXPECT_TRUE(limited.explainHeight(900, 600));
    EXPECT_FALSE(limited.explainWidth(500, 300));
    EXPECT_FALSE(limited.explainHeight(500, 600));
    EXPECT_FALSE(SizeHints{}.explainWidth(500, 640));
    EXPECT_TRUE(SizeHints{}.explainWidth(500, 500));
}

TEST(SizeHints, ContradictoryNumbersAreSurvived) {
    const SizeHints nonsense{.minWidth = 900, .maxWidth = -5, .widthIncrement = 0};
    EXPECT_TRUE(nonsense.explainWidth(500, 900));
    const SizeHints crossed{.minWidth = 900, .maxWidth = 100, .widthIncrement = -7};
    EXPECT_TRUE(crossed.explainWidth(500, 900));
}

} // namespace
} // namespace vantrel

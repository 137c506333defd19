#include "VantrelCore/scenes/SceneSettlement.h"

#include "VantrelCore/scenes/SceneSettlementCaption.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;

const Date deadline{std::chrono::seconds{1000}};

SceneSettlement settlementOf(const std::vector<SceneSettlement::LaunchedApp>& launched) {
    return SceneSettlement::make("S", "Work", 3, launched, deadline);
}

} // namespace

TEST(SceneSettlement, AnApplicationLaunchedTwiceIsAwaitedOnceAndCountedTwice) {
    const auto settlement = settlementOf({{"mail", "Mail"}, {"mail", "E-Mail"}});
    EXPECT_THAT(settlement.pendingBundleIDs(), ElementsAre("mail"));
    EXPECT_EQ(settlement.summary(), (SettlementSummary{2, 0, {"E-Mail"}}));
}

TEST(SceneSettlement, ItIsCompleteWhenEveryAwaitedApplicationIsPlacedOnce) {
    EXPECT_TRUE(settlementOf({}).isComplete());
    auto settlement = settlementOf({{"mail", "Mail"}, {"notes", "Notes"}});
    EXPECT_TRUE(settlement.markPlaced("notes"));
    EXPECT_FALSE(settlement.markPlaced("notes"));
    EXPECT_FALSE(settlement.markPlaced("never"));
    EXPECT_FALSE(settlement.isComplete());
    EXPECT_TRUE(settlement.markPlaced("mail"));
    EXPECT_TRUE(settlement.isComplete());
    EXPECT_THAT(settlement.placed, ElementsAre("notes", "mail"));
}

TEST(SceneSettlement, RefreshAwaitsAgainWhatWasNotPlacedAndSetsTheDeadline) {
    auto settlement = settlementOf({{"mail", "Mail"}, {"notes", "Notes"}});
    EXPECT_FALSE(settlement.isExpired(deadline - std::chrono::microseconds{1}));
    EXPECT_TRUE(settlement.isExpired(deadline));
    settlement.markPlaced("mail");
    settlement.refresh({{"mail", "Mail"}, {"notes", "Notizen"}, {"chat", "Chat"}},
                       deadline + std::chrono::seconds{20});
    EXPECT_FALSE(settlement.isExpired(deadline));
    EXPECT_EQ(settlement.summary(), (SettlementSummary{2, 1, {"Chat", "Notizen"}}));
    settlement.markPlaced("notes");
    settlement.markPlaced("chat");
    // Two were opened at first, three placed in the end.
    EXPECT_EQ(settlement.summary(), (SettlementSummary{3, 3, {}}));
}

TEST(SceneSettlement, StragglersAreNamedInOrder) {
    EXPECT_THAT(settlementOf({{"1", "b"}, {"2", "a"}, {"3", "Z"}, {"4", "a"}}).stragglerNames(),
                ElementsAre("Z", "a", "a", "b"));
}

TEST(SceneSettlementCaption, NamesTheFirstStragglersAndCountsTheRest) {
    using SceneSettlementCaption::detail;
    EXPECT_EQ(detail(2, 2, {}), "opened 2, placed 2");
    EXPECT_EQ(detail(2, 1, {"Mail"}), "opened 2, placed 1 · Mail did not finish opening");
    EXPECT_EQ(detail(3, 1, {"Mail", "Notes"}), "opened 3, placed 1 · Mail and Notes did not finish opening");
    EXPECT_EQ(detail(5, 1, {"Mail", "Notes", "Chat", "Web"}),
              "opened 5, placed 1 · Mail and 3 more did not finish opening");
}

} // namespace vantrel

// What the records of history and usage keep, and what stands for the desk before a change.
#include "VantrelCore/model/PreChangeSnapshot.h"
#include "VantrelCore/model/RestoreReceipts.h"
#include "VantrelCore/model/UsageStats.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using namespace std::chrono;
using testing::ElementsAre;

const Date now{days{20'000}};

} // namespace

TEST(RestoreReceipts, CountsTheLastSevenDaysToTheSecond) {
    RestoreReceipts receipts;
    receipts.record(1, now - days{7} - seconds{1});
    receipts.record(2, now - days{7});
    receipts.record(4, now);
    EXPECT_EQ(receipts.windowsLast7Days(now), 6);
    receipts.record(INT64_MAX, now);
    EXPECT_EQ(receipts.windowsLast7Days(now), INT64_MAX) << "a hand-edited count does not wrap around";
}

TEST(RestoreReceipts, ForgetsAfterThirtyDaysWhenRecording) {
    RestoreReceipts receipts{{{now - days{30} - seconds{1}, 1}, {now - days{30}, 2}}};
    receipts.record(4, now);
    EXPECT_THAT(receipts.entries,
                ElementsAre(RestoreReceiptEntry{now - days{30}, 2}, RestoreReceiptEntry{now, 4}));
}

TEST(UsageStats, ASceneSwitchIsARestoreToo) {
    UsageStats stats;
    stats.recordSceneSwitch(4, "desk", now);
    stats.recordRestore(0, "", now + hours{1});
    stats.recordStashUse(-3, "desk", now);
    stats.recordUndo(2, "other", now);
    const UsageStats expected{.restores = 2,
                              .windowsVantrel = 6,
                              .sceneSwitches = 1,
                              .stashUses = 1,
                              .undoUses = 1,
                              .deskIDs = {"desk", "other"},
                              .firstRecordedAt = now};
    EXPECT_EQ(stats, expected);
}

TEST(PreChangeSnapshot, OnlyARecentCaptureOfThisDeskWithWindowsIsAdopted) {
    Layout layout;
    layout.configID = "desk";
    const Layout withoutWindows = layout;
    layout.windows.emplace_back();
    const auto adopts = [&](const std::optional<PreChangeSnapshot::Candidate>& candidate) {
        return PreChangeSnapshot::shouldAdopt(candidate, now, "desk", 45);
    };
    Layout elsewhere = layout;
    elsewhere.configID = "other";
    EXPECT_TRUE(adopts({{layout, now - seconds{45}}}));
    EXPECT_FALSE(adopts({{layout, now - seconds{45} - microseconds{1}}}));
    EXPECT_FALSE(adopts({{elsewhere, now}}));
    EXPECT_FALSE(adopts({{withoutWindows, now}}));
    EXPECT_FALSE(adopts(std::nullopt));
}

} // namespace vantrel

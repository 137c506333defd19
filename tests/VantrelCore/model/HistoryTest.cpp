// Records of restores, usage and what applications tolerate; the session lock.
#include "VantrelCore/model/AppReliability.h"
#include "VantrelCore/model/AppSizeBehavior.h"
#include "VantrelCore/model/PreChangeSnapshot.h"
#include "VantrelCore/model/RestoreReceipts.h"
#include "VantrelCore/model/SessionLock.h"
#include "VantrelCore/model/UsageStats.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using namespace std::chrono;
using Outcome = RestoreLog::Outcome;
using Sample = AppSizeBehavior::Sample;
using Change = SessionLock::Change;

const Date now{days{20'000}};

TEST(RestoreReceipts, CountTheLastSevenDaysToTheSecond) {
    RestoreReceipts receipts;
    receipts.record(1, now - days{7} - seconds{1});
    receipts.record(2, now - days{7});
    receipts.record(4, now);
    EXPECT_EQ(receipts.windowsLast7Days(now), 6);
    receipts.record(INT64_MAX, now);
    EXPECT_EQ(receipts.windowsLast7Days(now), INT64_MAX) << "a hand-edited count does not wrap around";
}

TEST(RestoreReceipts, ForgetEntriesOlderThanThirtyDays) {
    RestoreReceipts receipts{{{now - days{30} - seconds{1}, 1}, {now - days{30}, 2}}};
    receipts.record(4, now);
    EXPECT_THAT(receipts.entries,
                ElementsAre(RestoreReceiptEntry{now - days{30}, 2}, RestoreReceiptEntry{now, 4}));
}

TEST(UsageStats, CountASceneSwitchAsARestore) {
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

TEST(PreChangeSnapshot, IsAdoptedWhenRecentOfThisDeskAndNotEmpty) {
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

const Date noon{std::chrono::sys_days{std::chrono::year{2025} / 3 / 1} + std::chrono::hours{12}};

RestoreLog::Item item(Outcome outcome, std::optional<std::string> reason = std::nullopt) {
    return {"Editor", "editor", "Notes", outcome, std::move(reason)};
}

TEST(AppReliability, IsStubbornAfterThreeAttemptsWhenOverFortyPercentFail) {
    const std::tuple<int, int, int, std::optional<double>, bool> rows[] = {
        {0, 0, 2, 1.0, false}, {0, 0, 3, 1.0, true},           {1, 1, 2, 0.5, true},
        {2, 1, 2, 0.4, false}, {0, 0, 0, std::nullopt, false}, {59, 0, 41, 0.41, true},
    };
    for (const auto& [restored, retried, failed, rate, isStubborn] : rows) {
        SCOPED_TRACE(failed);
        AppReliability app;
        app.restoredCount = restored;
        app.retriedCount = retried;
        app.failedCount = failed;
        app = app.ingesting(item(Outcome::skipped), noon);
        EXPECT_EQ(app.landed(), restored + retried);
        EXPECT_EQ(app.skippedCount, 1);
        EXPECT_EQ(app.failureRate(), rate);
        EXPECT_EQ(app.isStubborn(), isStubborn);
    }
    EXPECT_EQ(AppReliability{}.ingesting(item(Outcome::retried), noon).retriedCount, 1);
}

TEST(AppReliability, KeepsTheLastFailureReason) {
    auto app = AppReliability{}.ingesting(item(Outcome::failed, "app rejected the move"), noon);
    app = app.ingesting(item(Outcome::skipped, "window no longer exists"), noon);
    app = app.ingesting(item(Outcome::failed), noon);
    EXPECT_EQ(app.lastFailureReason, "app rejected the move");
    app = app.ingesting(item(Outcome::failed, "window drifted after move"), noon);
    EXPECT_EQ(app.lastFailureReason, "window drifted after move");
}

TEST(AppReliability, AnOlderItemLeavesDateAndNameUnchanged) {
    auto renamed = item(Outcome::restored);
    renamed.appName = "Editor Pro";
    auto app = AppReliability{}.ingesting(item(Outcome::restored), noon).ingesting(renamed, noon);
    EXPECT_EQ(app.appName, "Editor Pro");
    app = app.ingesting(item(Outcome::restored), dateAfter(noon, -60));
    EXPECT_EQ(app.appName, "Editor Pro");
    EXPECT_EQ(app.lastSeen, noon);
    EXPECT_EQ(app.restoredCount, 3);
    renamed.appName = "";
    EXPECT_EQ(app.ingesting(renamed, dateAfter(noon, 60)).appName, "Editor Pro");
}

TEST(AppReliability, DamagedCountersNeitherOverflowNorCount) {
    AppReliability app;
    app.restoredCount = app.retriedCount = app.failedCount = INT64_MAX;
    app = app.ingesting(item(Outcome::failed), noon);
    EXPECT_EQ(app.attempts(), INT64_MAX);
    app.restoredCount = app.retriedCount = INT64_MIN;
    EXPECT_EQ(app.failureRate(), std::nullopt);
    EXPECT_FALSE(app.isStubborn());
}

AppSizeBehavior learned(const std::vector<Sample>& samples) {
    AppSizeBehavior behavior;
    behavior.bundleID = "app";
    for (const auto& sample : samples) {
        behavior = behavior.ingesting(sample);
    }
    return behavior;
}

const Sample honored{{700, 500}, {700, 500}};
const Sample constrained{{400, 300}, {500, 400}};

TEST(AppSizeBehavior, ClassifiesBySamples) {
    const AppSizeBehavior::Classification flexible = AppSizeBehavior::Flexible{};
    const Sample preferences{{800, 600}, {715, 600}};

    const std::tuple<const char*, std::vector<Sample>, AppSizeBehavior::Classification> cases[] = {
        {"nothing known", {}, flexible},
        {"every size taken", {honored, {{900, 100}, {900, 100}}}, flexible},
        {"a single refusal proves nothing", {preferences}, flexible},
        {"the same size twice", {preferences, preferences}, AppSizeBehavior::FixedSize{{715, 600}}},
        {"the first size within the tolerance",
         {preferences, {{900, 900}, {719, 596}}},
         AppSizeBehavior::FixedSize{{715, 600}}},
        {"a minimum", {honored, constrained}, AppSizeBehavior::MinClamped{{500, 400}}},
        {"two sizes and neither asked for",
         {{{400, 300}, {500, 450}}, {{300, 300}, {510, 400}}},
         AppSizeBehavior::MinClamped{{500, 400}}},
    };

    for (const auto& [what, samples, expected] : cases) {
        EXPECT_TRUE(learned(samples).classification() == expected) << what;
    }
}

TEST(AppSizeBehavior, AcceptsADifferenceOfFourPoints) {
    for (const double off : {3.9, -3.9, 4.0}) {
        EXPECT_EQ(learned({{{700, 500}, {700 + off, 500}}}).honoredCount, 1) << off;
    }
    const auto behavior = learned({{{700, 500}, {700, 504.1}}});
    EXPECT_EQ(behavior.honoredCount, 0);
    EXPECT_EQ(behavior.constrainedCount, 1);
    EXPECT_FALSE(learned({honored, {{704, 500}, {704, 500}}}).achievedVaries);
    EXPECT_TRUE(learned({honored, {{704.1, 500}, {704.1, 500}}, honored}).achievedVaries);
}

TEST(AppSizeBehavior, RemembersFirstLastAndSmallestSizes) {
    const auto behavior = learned({{{400, 300}, {500, 450}}, honored, {{100, 100}, {510, 400}}});
    EXPECT_EQ(behavior, (AppSizeBehavior{.bundleID = "app",
                                         .sampleCount = 3,
                                         .honoredCount = 1,
                                         .constrainedCount = 2,
                                         .achievedVaries = true,
                                         .firstAchieved = Size{500, 450},
                                         .floor = Size{500, 400},
                                         .lastRequested = Size{100, 100},
                                         .lastAchieved = Size{510, 400}}));
}

TEST(SessionLock, IsLockedWhileAnySourceSaysSo) {
    SessionLock lock;
    EXPECT_EQ(lock.set("hint", false), Change::none);
    EXPECT_EQ(lock.set("hint", true), Change::locked);
    EXPECT_EQ(lock.set("saver", true), Change::none);
    EXPECT_EQ(lock.set("hint", false), Change::none);
    EXPECT_TRUE(lock.isLocked());
    EXPECT_EQ(lock.set("saver", true), Change::none);
    EXPECT_EQ(lock.set("saver", false), Change::unlocked);
    EXPECT_EQ(lock.set("saver", false), Change::none);
}

} // namespace
} // namespace vantrel

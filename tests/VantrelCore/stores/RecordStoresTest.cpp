// The stores of one kind of record each: their order, limits and expiry. JsonStoreTest has what they share.
#include "VantrelCore/stores/AppReliabilityStore.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "tests/VantrelCore/stores/StoreTest.h"
#include "tests/simulated/SimulatedTime.h"

#include <fmt/format.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

using testing::ElementsAre, testing::IsEmpty;
using Outcome = RestoreLog::Outcome;
using AppReliabilityStoreTest = StoreTest<AppReliabilityStore>;
using simulated::MemoryFileSystem;
using AppSizeBehaviorStoreTest = StoreTest<AppSizeBehaviorStore>;
using std::chrono::days;
using std::chrono::seconds;
using RestoreLogStoreTest = StoreTest<RestoreLogStore>;
using simulated::SimulatedTime;
using TriggerStoreTest = StoreTest<TriggerStore>;

const Date noon = dateFromIso8601("2025-03-01T12:00:00Z").value();

std::vector<RestoreLog::Item> items(const std::string& bundleID, int restored, int failed,
                                    const std::string& appName = "App") {
    std::vector<RestoreLog::Item> result(static_cast<std::size_t>(restored),
                                         {appName, bundleID, "Title", Outcome::restored, std::nullopt});
    result.resize(result.size() + static_cast<std::size_t>(failed),
                  {appName, bundleID, "Title", Outcome::failed, "app rejected the move"});
    return result;
}

TEST_F(AppReliabilityStoreTest, ListsTheLeastReliableFirst) {
    EXPECT_TRUE(m_store.record(std::vector<RestoreLog::Item>{}, noon));
    EXPECT_THAT(m_files.files(), IsEmpty()) << "nothing to record";
    EXPECT_TRUE(m_store.record({{"zebra", "skipped", "", Outcome::skipped, std::nullopt}}, noon));
    EXPECT_TRUE(m_store.record(items("good", 9, 0, "Äpfel"), noon));
    EXPECT_TRUE(m_store.record(items("half", 1, 1, "alpha"), noon));
    EXPECT_TRUE(m_store.record(items("half of more", 2, 2, "beta"), noon));
    EXPECT_TRUE(m_store.record(items("bad", 0, 1, "Zulu"), noon));
    EXPECT_TRUE(m_store.record(items("as bad", 0, 1, "beta"), noon));
    EXPECT_TRUE(m_store.record(items("as bad and later", 0, 1, "BETA"), noon));
    EXPECT_THAT(fieldsOf(m_store.all(), &AppReliability::bundleID),
                ElementsAre("as bad", "as bad and later", "bad", "half of more", "half", "good", "skipped"));
}

TEST_F(AppReliabilityStoreTest, CountsAcrossRestoresAndRestarts) {
    EXPECT_TRUE(m_store.record(items("editor", 1, 1), noon));
    EXPECT_THAT(m_store.stubbornBundleIDs(), IsEmpty());
    m_store = open();
    auto mixed = items("editor", 0, 1);
    mixed.push_back(items("mail", 1, 0).front());
    EXPECT_TRUE(m_store.record(mixed, dateAfter(noon, 60)));

    m_store = open();
    EXPECT_THAT(m_store.stubbornBundleIDs(), ElementsAre("editor"));
    const AppReliability editor{.bundleID = "editor",
                                .appName = "App",
                                .restoredCount = 1,
                                .failedCount = 2,
                                .lastFailureReason = "app rejected the move",
                                .lastSeen = dateAfter(noon, 60)};
    EXPECT_EQ(m_store.record("editor"), editor);
    EXPECT_EQ(m_store.record("Editor"), std::nullopt);

    EXPECT_TRUE(m_store.clear());
    EXPECT_THAT(open().all(), IsEmpty());
}

TEST_F(AppReliabilityStoreTest, DropsTheAppsUnseenForLongest) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(m_store.record(items(fmt::format("old {}", i), 1, 0), dateAfter(noon, i)));
    }
    std::vector<RestoreLog::Item> many;
    for (std::size_t i = 0; i < AppReliabilityStore::maxApps - 2; ++i) {
        many.push_back(items(fmt::format("app {}", i), 1, 0).front());
    }
    EXPECT_TRUE(m_store.record(many, dateAfter(noon, 60)));
    EXPECT_EQ(m_store.all().size(), AppReliabilityStore::maxApps);
    EXPECT_EQ(m_store.record("old 0"), std::nullopt);
    EXPECT_TRUE(m_store.record("old 1"));
}

const AppSizeBehaviorStore::Observation refused{"editor", {400, 300}, {500.5, 400}};
const AppSizeBehaviorStore::Observation taken{"editor", {700, 500}, {700, 500}};

TEST_F(AppSizeBehaviorStoreTest, KeepsWhatItLearnedAcrossARestart) {
    EXPECT_TRUE(m_store.record({refused, {"terminal", {300, 300}, {300, 300}}, taken}));
    EXPECT_EQ(m_files.count(MemoryFileSystem::Operation::writeAtomically), 1U);
    EXPECT_TRUE(m_store.record(taken));

    auto reopened = open();
    EXPECT_EQ(reopened.behavior("editor")->sampleCount, 3);
    EXPECT_EQ(reopened.behavior("editor"), m_store.behavior("editor"));
    EXPECT_TRUE(reopened.classification("editor") ==
                AppSizeBehavior::Classification(AppSizeBehavior::MinClamped{{500.5, 400}}));
    EXPECT_EQ(reopened.behavior("terminal")->honoredCount, 1);
    EXPECT_EQ(reopened.behavior("Editor"), std::nullopt);
}

TEST_F(AppSizeBehaviorStoreTest, UsesTheBuiltInDefaultUntilItHasASample) {
    const std::string preferences = "com.apple.systempreferences";
    const AppSizeBehavior::Classification flexible = AppSizeBehavior::Flexible{};
    const AppSizeBehavior::Classification seeded = AppSizeBehavior::FixedSize{{715, 600}};
    EXPECT_TRUE(m_store.classification("editor") == flexible);
    EXPECT_TRUE(m_store.classification(preferences) == seeded);

    m_files.put("/v/app-size-behavior.json",
                R"({"version": 1, "behaviors": [{"bundleID": "com.apple.systempreferences",
        "sampleCount": 0, "honoredCount": 0, "constrainedCount": 0, "achievedVaries": false}]})");
    m_store = open();
    EXPECT_TRUE(m_store.classification(preferences) == seeded)
        << "a record without samples has learned nothing";
    EXPECT_TRUE(m_store.record({preferences, {900, 700}, {900, 700}}));
    EXPECT_TRUE(m_store.classification(preferences) == flexible);
}

TEST_F(AppSizeBehaviorStoreTest, IgnoresInfiniteAndUndefinedSizes) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(
        m_store.record({{"editor", {nan, 300}, {500, 400}}, {"editor", {400, 300}, {500, infinity}}}));
    EXPECT_EQ(m_store.behavior("editor"), std::nullopt);
    EXPECT_TRUE(m_files.files().empty());
}

const Date start{days{20'000}};

RestoreLog::Entry entryAt(Date date) {
    RestoreLog::Entry entry;
    entry.date = date;
    return entry;
}

TEST_F(RestoreLogStoreTest, KeepsTwentyEntriesOfAWeekNewestFirst) {
    EXPECT_FALSE(m_store.replaceNewest(entryAt(start))) << "there is none";
    EXPECT_TRUE(m_store.record(entryAt(start - days{7} - seconds{1})));
    EXPECT_TRUE(m_store.record(entryAt(start - days{7})));
    EXPECT_EQ(m_store.load().entries.size(), 2U);
    for (int i = 0; i < 19; ++i) {
        EXPECT_TRUE(m_store.record(entryAt(start)));
    }
    EXPECT_EQ(m_store.load().entries.size(), 20U);
    EXPECT_EQ(m_store.load().entries.back().date, start - days{7}) << "exactly a week old";
    EXPECT_TRUE(m_store.record(entryAt(start)));
    EXPECT_EQ(m_store.load().entries.size(), 20U);
    EXPECT_EQ(m_store.load().entries.back().date, start) << "a twenty-first drops the oldest";
    EXPECT_TRUE(m_store.replaceNewest(entryAt(start + seconds{1})));
    const auto stored = open().load().entries;
    EXPECT_EQ(stored.size(), 20U);
    EXPECT_EQ(stored.front().date, start + seconds{1});
    EXPECT_TRUE(m_store.clear());
    EXPECT_EQ(open().load(), RestoreLog{});
}

Stash stash(const std::string& id, Date createdAt, const std::string& configID = "desk") {
    Stash result;
    result.id = id;
    result.createdAt = createdAt;
    result.configID = configID;
    return result;
}

class StashStoreTest : public testing::Test {
protected:
    MemoryFileSystem m_files;
    SimulatedTime m_clock{0, start};
    StashStore m_store = open();

    StashStore open() { return StashStore::open("/v", m_files, m_clock).value(); }
    nlohmann::json onDisk() { return nlohmann::json::parse(m_files.content("/v/stashes.json").value_or("")); }
};

TEST_F(StashStoreTest, ListsTheNewestFirstAndEqualOnesInOrder) {
    m_store.add(stash("b", start));
    m_store.add(stash("old", start - seconds{1}));
    m_store.add(stash("twin", start));
    m_store.add(stash("elsewhere", start + seconds{1}, "other"));
    EXPECT_THAT(fieldsOf(m_store.allStashes(), &Stash::id), ElementsAre("elsewhere", "b", "twin", "old"));
    EXPECT_EQ(m_store.newest().value().id, "elsewhere");
    EXPECT_EQ(m_store.newestFor("desk").value().id, "b");
    EXPECT_EQ(m_store.newestFor("none"), std::nullopt);
    EXPECT_EQ(m_store.stash("old").value().id, "old");
    EXPECT_TRUE(m_store.remove("elsewhere"));
    EXPECT_EQ(open().newest().value().id, "b");
}

TEST_F(StashStoreTest, AnEleventhStashDropsTheOldest) {
    for (int i = 0; i < 11; ++i) {
        // The oldest is neither the first nor the last to be added.
        m_store.add(stash(std::to_string(i), i == 5 ? start - days{1} : start + seconds{i}));
    }
    EXPECT_EQ(onDisk().at("stashes").size(), 10U);
    EXPECT_EQ(m_store.stash("5"), std::nullopt);
    EXPECT_NE(m_store.stash("0"), std::nullopt);
}

TEST_F(StashStoreTest, KeepsStashesForAWeekToTheSecond) {
    m_store.add(stash("week", start));
    m_store.add(stash("longer", start - seconds{1}));
    m_clock.setWallClock(start + days{7});
    auto later = open();
    EXPECT_THAT(fieldsOf(later.allStashes(), &Stash::id), ElementsAre("week"));
    EXPECT_EQ(onDisk().at("stashes").size(), 2U) << "reading does not write";
    later.add(stash("new", start + days{7}));
    EXPECT_EQ(onDisk().at("stashes").size(), 2U);
    EXPECT_THAT(fieldsOf(open().allStashes(), &Stash::id), ElementsAre("new", "week"));
}

TEST_F(StashStoreTest, KeepsACopyWhenTheClockExpiresMostStashes) {
    for (const char* const id : {"1", "2", "3"}) {
        m_store.add(stash(id, start));
    }
    const auto before = m_files.content("/v/stashes.json");
    m_clock.setWallClock(start + days{30});
    FileIncidents incidents;
    auto later = StashStore::open("/v", {m_files, &incidents}, m_clock).value();
    later.add(stash("new", start + days{30}));
    EXPECT_EQ(m_files.content("/v/stashes.json.expired"), before);
    ASSERT_EQ(incidents.all().size(), 1U);
    EXPECT_EQ(incidents.all().front().kind, FileIncident::Kind::expiredKept);
    later.add(stash("newer", start + days{30}));
    EXPECT_EQ(m_files.content("/v/stashes.json.expired"), before) << "only once";
}

SceneTrigger trigger(const std::string& id, int age = 0) {
    SceneTrigger result;
    result.id = id;
    result.kind = SceneTrigger::Schedule{7, 30};
    result.createdAt = start - std::chrono::seconds{age};
    return result;
}

TEST_F(TriggerStoreTest, ListsTriggersOldestFirst) {
    for (const auto& each : {trigger("late"), trigger("early", 5), trigger("twin")}) {
        ASSERT_EQ(m_store.add(each), each);
    }
    EXPECT_THAT(fieldsOf(open().allTriggers(), &SceneTrigger::id), ElementsAre("early", "late", "twin"));
}

TEST_F(TriggerStoreTest, RefusesATwentyFirstTrigger) {
    for (int i = 0; i < 20; ++i) {
        // Identifiers are not checked.
        ASSERT_TRUE(m_store.add(trigger("same")));
    }
    const auto before = m_files.content("/v/triggers.json");
    EXPECT_EQ(m_store.add(trigger("new")), std::unexpected(TriggerStoreError::capReached));
    EXPECT_EQ(m_files.content("/v/triggers.json"), before);
}

TEST_F(TriggerStoreTest, WritesChanges) {
    ASSERT_TRUE(m_store.add(trigger("a")));
    EXPECT_TRUE(m_store.setEnabled("a", false));
    EXPECT_TRUE(m_store.recordFired("a", start));
    const auto stored = open().trigger("a").value();
    EXPECT_FALSE(stored.enabled);
    EXPECT_EQ(stored.lastFiredAt, start);
    EXPECT_EQ(m_store.setEnabled("b", true), std::unexpected(TriggerStoreError::notFound));
    EXPECT_EQ(m_store.recordFired("b", start), std::unexpected(TriggerStoreError::notFound));
    m_store.deleteTrigger("a");
    EXPECT_TRUE(open().allTriggers().empty());
}

} // namespace
} // namespace vantrel

#include "VantrelCore/stores/StashStore.h"

#include "tests/simulated/MemoryFileSystem.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <rapidcheck/gtest.h>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;
using simulated::SimulatedTime;
using std::chrono::days;
using std::chrono::seconds;
using testing::ElementsAre;

const Date start{days{20'000}};

Stash stash(const std::string& id, Date createdAt, const std::string& configID = "desk") {
    Stash result;
    result.id = id;
    result.createdAt = createdAt;
    result.configID = configID;
    return result;
}

std::vector<std::string> ids(const std::vector<Stash>& stashes) {
    std::vector<std::string> result;
    for (const auto& each : stashes) {
        result.push_back(each.id);
    }
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

} // namespace

TEST_F(StashStoreTest, TheNewestComesFirstAndTheFirstStoredOfEqualOnes) {
    m_store.add(stash("b", start));
    m_store.add(stash("old", start - seconds{1}));
    m_store.add(stash("twin", start));
    m_store.add(stash("elsewhere", start + seconds{1}, "other"));
    EXPECT_THAT(ids(m_store.allStashes()), ElementsAre("elsewhere", "b", "twin", "old"));
    EXPECT_EQ(m_store.newest().value().id, "elsewhere");
    EXPECT_EQ(m_store.newestFor("desk").value().id, "b");
    EXPECT_EQ(m_store.newestFor("none"), std::nullopt);
    EXPECT_EQ(m_store.stash("old").value().id, "old");
    EXPECT_TRUE(m_store.remove("elsewhere"));
    EXPECT_EQ(open().newest().value().id, "b");
}

TEST_F(StashStoreTest, TheEleventhStashDropsTheOldest) {
    for (int i = 0; i < 11; ++i) {
        // The oldest is neither the first nor the last to be added.
        m_store.add(stash(std::to_string(i), i == 5 ? start - days{1} : start + seconds{i}));
    }
    EXPECT_EQ(onDisk().at("stashes").size(), 10U);
    EXPECT_EQ(m_store.stash("5"), std::nullopt);
    EXPECT_NE(m_store.stash("0"), std::nullopt);
}

TEST_F(StashStoreTest, StashesAreKeptForAWeekToTheSecond) {
    m_store.add(stash("week", start));
    m_store.add(stash("longer", start - seconds{1}));
    m_clock.setWallClock(start + days{7});
    auto later = open();
    EXPECT_THAT(ids(later.allStashes()), ElementsAre("week"));
    EXPECT_EQ(onDisk().at("stashes").size(), 2U) << "reading does not write";
    later.add(stash("new", start + days{7}));
    EXPECT_EQ(onDisk().at("stashes").size(), 2U);
    EXPECT_THAT(ids(open().allStashes()), ElementsAre("new", "week"));
}

TEST_F(StashStoreTest, AFailedWriteReturnsTheStashAndKeepsTheOthers) {
    m_store.add(stash("a", start));
    m_files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_EQ(m_store.add(stash("b", start)).id, "b");
    EXPECT_FALSE(m_store.remove("a"));
    EXPECT_THAT(ids(m_store.allStashes()), ElementsAre("a"));
}

TEST_F(StashStoreTest, ADamagedFileIsPutAsideAndTheStoreStartsEmpty) {
    for (const auto* content : {"", "{", R"({"stashes": []})", R"({"version": 1, "stashes": [{"id": "a"}]})",
                                R"({"version": 1, "stashes": {}})"}) {
        m_files.put("/v/stashes.json", content);
        EXPECT_THAT(open().allStashes(), testing::IsEmpty()) << content;
        EXPECT_EQ(m_files.content("/v/stashes.json.corrupt"), content);
    }
}

RC_GTEST_PROP(StashStoreProperties, NeverHoldsMoreThanTenAndKeepsTheNewest,
              (const std::vector<unsigned char>& ages)) {
    MemoryFileSystem files;
    SimulatedTime clock(0, start);
    auto store = StashStore::open("/v", files, clock).value();
    std::vector<Date> all;
    for (const auto age : ages) {
        all.push_back(start - seconds{age});
        store.add(stash("s", all.back()));
        const auto kept = store.allStashes();
        RC_ASSERT(kept.size() <= StashStore::maxStashes);
        RC_ASSERT(std::ranges::is_sorted(kept, std::ranges::greater{}, &Stash::createdAt));
    }
    std::ranges::sort(all, std::ranges::greater{});
    all.resize(std::min(all.size(), StashStore::maxStashes));
    std::vector<Date> kept;
    for (const auto& each : StashStore::open("/v", files, clock).value().allStashes()) {
        kept.push_back(each.createdAt);
    }
    RC_ASSERT(kept == all);
}

} // namespace vantrel

#include "VantrelCore/stores/StashStore.h"

#include "tests/VantrelCore/stores/StoreTest.h"
#include "tests/simulated/SimulatedTime.h"

#include <nlohmann/json.hpp>

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
    EXPECT_THAT(fieldsOf(m_store.allStashes(), &Stash::id), ElementsAre("elsewhere", "b", "twin", "old"));
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
    EXPECT_THAT(fieldsOf(later.allStashes(), &Stash::id), ElementsAre("week"));
    EXPECT_EQ(onDisk().at("stashes").size(), 2U) << "reading does not write";
    later.add(stash("new", start + days{7}));
    EXPECT_EQ(onDisk().at("stashes").size(), 2U);
    EXPECT_THAT(fieldsOf(open().allStashes(), &Stash::id), ElementsAre("new", "week"));
}

TEST_F(StashStoreTest, ACopyIsKeptWhenTheClockMakesMostStashesTooOld) {
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

} // namespace vantrel

#include "VantrelCore/stores/TriggerStore.h"

#include "tests/simulated/MemoryFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;
using testing::ElementsAre;

const Date start{std::chrono::days{20'000}};

SceneTrigger trigger(const std::string& id, int age = 0) {
    SceneTrigger result;
    result.id = id;
    result.kind = SceneTrigger::Schedule{7, 30};
    result.createdAt = start - std::chrono::seconds{age};
    return result;
}

template <typename T>
std::optional<TriggerStoreError> errorOf(const TriggerStore::Result<T>& result) {
    return result ? std::nullopt : std::optional(result.error());
}

class TriggerStoreTest : public testing::Test {
protected:
    MemoryFileSystem m_files;
    TriggerStore m_store = open();

    TriggerStore open() { return TriggerStore::open("/v", m_files).value(); }
};

} // namespace

TEST_F(TriggerStoreTest, TriggersAreOldestFirst) {
    for (const auto& each : {trigger("late"), trigger("early", 5), trigger("twin")}) {
        ASSERT_EQ(m_store.add(each), each);
    }
    std::vector<std::string> ids;
    for (const auto& each : open().allTriggers()) {
        ids.push_back(each.id);
    }
    EXPECT_THAT(ids, ElementsAre("early", "late", "twin"));
}

TEST_F(TriggerStoreTest, TheTwentyFirstIsRefused) {
    for (int i = 0; i < 20; ++i) {
        // Identifiers are not checked.
        ASSERT_TRUE(m_store.add(trigger("same")));
    }
    const auto before = m_files.content("/v/triggers.json");
    EXPECT_EQ(errorOf(m_store.add(trigger("new"))), TriggerStoreError::capReached);
    EXPECT_EQ(m_files.content("/v/triggers.json"), before);
}

TEST_F(TriggerStoreTest, ChangesReachTheFile) {
    ASSERT_TRUE(m_store.add(trigger("a")));
    EXPECT_TRUE(m_store.setEnabled("a", false));
    EXPECT_TRUE(m_store.recordFired("a", start));
    const auto stored = open().trigger("a").value();
    EXPECT_FALSE(stored.enabled);
    EXPECT_EQ(stored.lastFiredAt, start);
    EXPECT_EQ(errorOf(m_store.setEnabled("b", true)), TriggerStoreError::notFound);
    EXPECT_EQ(errorOf(m_store.recordFired("b", start)), TriggerStoreError::notFound);
    m_store.deleteTrigger("a");
    EXPECT_TRUE(open().allTriggers().empty());
}

TEST_F(TriggerStoreTest, DeletingAnUnknownTriggerWritesNothing) {
    m_store.deleteTrigger("a");
    EXPECT_EQ(m_files.count(MemoryFileSystem::Operation::writeAtomically), 0U);
}

TEST_F(TriggerStoreTest, AFailedWriteLeavesEverythingAsItWas) {
    ASSERT_TRUE(m_store.add(trigger("a")));
    m_files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_EQ(errorOf(m_store.add(trigger("b"))), TriggerStoreError::writeFailed);
    EXPECT_EQ(errorOf(m_store.setEnabled("a", false)), TriggerStoreError::writeFailed);
    EXPECT_EQ(errorOf(m_store.recordFired("a", start)), TriggerStoreError::writeFailed);
    m_store.deleteTrigger("a");
    EXPECT_THAT(m_store.allTriggers(), ElementsAre(trigger("a")));
}

TEST_F(TriggerStoreTest, AFileThatCannotBeUnderstoodIsPutAside) {
    nlohmann::json file{{"version", 1}, {"triggers", {trigger("a")}}};
    file["triggers"][0]["kind"]["focusMode"] = {{"name", "Work"}};
    m_files.put("/v/triggers.json", file.dump());
    EXPECT_TRUE(m_store.allTriggers().empty());
    EXPECT_EQ(m_files.content("/v/triggers.json.corrupt"), file.dump());
}

} // namespace vantrel

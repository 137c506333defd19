#include "VantrelCore/stores/TriggerStore.h"

#include "tests/VantrelCore/stores/StoreTest.h"

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

using TriggerStoreTest = StoreTest<TriggerStore>;

} // namespace

TEST_F(TriggerStoreTest, TriggersAreOldestFirst) {
    for (const auto& each : {trigger("late"), trigger("early", 5), trigger("twin")}) {
        ASSERT_EQ(m_store.add(each), each);
    }
    EXPECT_THAT(fieldsOf(open().allTriggers(), &SceneTrigger::id), ElementsAre("early", "late", "twin"));
}

TEST_F(TriggerStoreTest, TheTwentyFirstIsRefused) {
    for (int i = 0; i < 20; ++i) {
        // Identifiers are not checked.
        ASSERT_TRUE(m_store.add(trigger("same")));
    }
    const auto before = m_files.content("/v/triggers.json");
    EXPECT_EQ(m_store.add(trigger("new")), std::unexpected(TriggerStoreError::capReached));
    EXPECT_EQ(m_files.content("/v/triggers.json"), before);
}

TEST_F(TriggerStoreTest, ChangesReachTheFile) {
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

TEST_F(TriggerStoreTest, DeletingAnUnknownTriggerWritesNothing) {
    m_store.deleteTrigger("a");
    EXPECT_EQ(m_files.count(MemoryFileSystem::Operation::writeAtomically), 0U);
}

} // namespace vantrel

#include "VantrelCore/stores/AppReliabilityStore.h"

#include "tests/VantrelCore/stores/StoreTest.h"

#include <fmt/format.h>

namespace vantrel {

namespace {

using Outcome = RestoreLog::Outcome;
using testing::ElementsAre;
using testing::IsEmpty;

const Date noon = dateFromIso8601("2025-03-01T12:00:00Z").value();

std::vector<RestoreLog::Item> items(const std::string& bundleID, int restored, int failed,
                                    const std::string& appName = "App") {
    std::vector<RestoreLog::Item> result(static_cast<std::size_t>(restored),
                                         {appName, bundleID, "Title", Outcome::restored, std::nullopt});
    result.resize(result.size() + static_cast<std::size_t>(failed),
                  {appName, bundleID, "Title", Outcome::failed, "app rejected the move"});
    return result;
}

using AppReliabilityStoreTest = StoreTest<AppReliabilityStore>;

TEST_F(AppReliabilityStoreTest, TheWorstComeFirst) {
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

TEST_F(AppReliabilityStoreTest, CountsOverRestoresAndRestarts) {
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

TEST_F(AppReliabilityStoreTest, ReportsWithoutItemsWriteNothing) {
    EXPECT_TRUE(m_store.record(std::vector<RestoreLog::Item>{}, noon));
    EXPECT_THAT(m_files.files(), IsEmpty());
}

TEST_F(AppReliabilityStoreTest, TheLongestUnseenApplicationsMakeRoom) {
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

} // namespace

} // namespace vantrel

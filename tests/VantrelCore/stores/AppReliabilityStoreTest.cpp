#include "VantrelCore/stores/AppReliabilityStore.h"

#include "tests/simulated/MemoryFileSystem.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace vantrel {

namespace {

using Outcome = RestoreLog::Outcome;
using simulated::MemoryFileSystem;
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

class AppReliabilityStoreTest : public testing::Test {
protected:
    const std::filesystem::path m_folder = "/home/ada/Vantrel";
    const std::filesystem::path m_file = m_folder / "app-reliability.json";
    MemoryFileSystem m_files;
    AppReliabilityStore m_store = open();

    AppReliabilityStore open() { return AppReliabilityStore::open(m_folder, m_files).value(); }

    std::vector<std::string> order() {
        std::vector<std::string> bundleIDs;
        for (const auto& app : m_store.all()) {
            bundleIDs.push_back(app.bundleID);
        }
        return bundleIDs;
    }
};

TEST_F(AppReliabilityStoreTest, TheWorstComeFirst) {
    EXPECT_TRUE(m_store.record(items("never tried", 0, 0), noon));
    EXPECT_TRUE(m_store.record({{"zebra", "skipped", "", Outcome::skipped, std::nullopt}}, noon));
    EXPECT_TRUE(m_store.record(items("good", 9, 0, "Äpfel"), noon));
    EXPECT_TRUE(m_store.record(items("half", 1, 1, "alpha"), noon));
    EXPECT_TRUE(m_store.record(items("half of more", 2, 2, "beta"), noon));
    EXPECT_TRUE(m_store.record(items("bad", 0, 1, "Zulu"), noon));
    EXPECT_TRUE(m_store.record(items("as bad", 0, 1, "beta"), noon));
    EXPECT_TRUE(m_store.record(items("as bad and later", 0, 1, "BETA"), noon));
    EXPECT_THAT(order(),
                ElementsAre("as bad", "as bad and later", "bad", "half of more", "half", "good", "skipped"));
}

TEST_F(AppReliabilityStoreTest, CountsOverRestoresAndRestarts) {
    EXPECT_TRUE(m_store.record(items("editor", 1, 1), noon));
    EXPECT_THAT(m_store.stubbornBundleIDs(), IsEmpty());
    auto mixed = items("editor", 0, 1);
    mixed.push_back(items("mail", 1, 0).front());
    m_store = open();
    EXPECT_TRUE(m_store.record(mixed, dateAfter(noon, 60)));

    m_store = open();
    EXPECT_THAT(m_store.stubbornBundleIDs(), ElementsAre("editor"));
    const auto editor = m_store.record("editor");
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->attempts(), 3);
    EXPECT_EQ(editor->lastFailureReason, "app rejected the move");
    EXPECT_EQ(editor->lastSeen, dateAfter(noon, 60));
    EXPECT_EQ(m_store.record("Editor"), std::nullopt);

    EXPECT_TRUE(m_store.clear());
    EXPECT_THAT(open().all(), IsEmpty());
}

TEST_F(AppReliabilityStoreTest, ReportsWithoutItemsWriteNothing) {
    EXPECT_TRUE(m_store.record(std::vector<RestoreLog::Item>{}, noon));
    EXPECT_THAT(m_files.files(), IsEmpty());
}

TEST_F(AppReliabilityStoreTest, AFailedWriteCountsNothing) {
    EXPECT_TRUE(m_store.record(items("editor", 1, 0), noon));
    m_files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_FALSE(m_store.record(items("editor", 0, 5), noon));
    EXPECT_FALSE(m_store.clear());
    EXPECT_EQ(m_store.record("editor")->attempts(), 1);
}

TEST_F(AppReliabilityStoreTest, TheLongestUnseenApplicationsMakeRoom) {
    const auto count = static_cast<int>(AppReliabilityStore::maxApps);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(m_store.record(items(fmt::format("old {}", i), 1, 0), dateAfter(noon, i)));
    }
    std::vector<RestoreLog::Item> many;
    for (int i = 0; i < count - 2; ++i) {
        many.push_back(items(fmt::format("app {}", i), 1, 0).front());
    }
    EXPECT_TRUE(m_store.record(many, dateAfter(noon, 60)));
    EXPECT_EQ(m_store.all().size(), AppReliabilityStore::maxApps);
    EXPECT_EQ(m_store.record("old 0"), std::nullopt);
    EXPECT_TRUE(m_store.record("old 1"));
    EXPECT_TRUE(m_store.record("app 0"));
}

TEST_F(AppReliabilityStoreTest, HandEditedFilesAreReadOrMovedAsideWhole) {
    const std::string sound = R"({"bundleID": "editor", "appName": "Editor", "restoredCount": 1.0,
        "retriedCount": 0, "failedCount": 2, "skippedCount": 0, "lastFailureReason": null,
        "lastSeen": "2025-03-01T12:00:00+01:00", "favourite": true})";
    const struct {
        const char* what;
        std::string content;
        bool readable;
    } cases[] = {
        {"keys of a newer program, whole numbers as decimals, null for absent",
         R"({"version": 99, "future": {}, "apps": [)" + sound + "]}", true},
        {"one undecodable record", R"({"version": 1, "apps": [)" + sound + R"(, {"bundleID": "x"}]})", false},
        {"a fraction for a count",
         R"({"version": 1, "apps": [{"bundleID": "e", "appName": "E", "restoredCount": 1.5, "retriedCount": 0,
            "failedCount": 0, "skippedCount": 0, "lastSeen": "2025-03-01T12:00:00Z"}]})",
         false},
        {"no version", R"({"apps": []})", false},
        {"no records", R"({"version": 1})", false},
        {"cut off", R"({"version": 1, "apps": [)" + sound, false},
        {"empty", "", false},
    };
    for (const auto& [what, content, readable] : cases) {
        MemoryFileSystem files;
        files.put(m_file, content);
        auto store = AppReliabilityStore::open(m_folder, files).value();
        EXPECT_EQ(store.record("editor").has_value(), readable) << what;
        EXPECT_TRUE(store.record(items("mail", 1, 0), noon)) << what;
        EXPECT_EQ(files.content(m_file.string() + ".corrupt"),
                  readable ? std::nullopt : std::optional(content))
            << what;
        const auto written = nlohmann::json::parse(files.content(m_file).value());
        EXPECT_EQ(written["version"], 1) << what;
        EXPECT_EQ(written["apps"].size(), readable ? 2U : 1U) << what;
    }
}

} // namespace

} // namespace vantrel

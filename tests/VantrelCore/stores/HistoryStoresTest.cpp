// The stores of the restore log, the receipts and the usage totals.
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"
#include "tests/simulated/MemoryFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <rapidcheck/gtest.h>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;
using std::chrono::days;
using std::chrono::seconds;

const Date start{days{20'000}};

RestoreLog::Entry entryAt(Date date) {
    RestoreLog::Entry entry;
    entry.date = date;
    return entry;
}

class HistoryStoresTest : public testing::Test {
protected:
    MemoryFileSystem m_files;
    RestoreLogStore m_store = open();

    RestoreLogStore open() { return RestoreLogStore::open("/v", m_files).value(); }
    nlohmann::json onDisk(const std::string& name) {
        return nlohmann::json::parse(m_files.content("/v/" + name).value_or(""));
    }
};

} // namespace

TEST_F(HistoryStoresTest, TheLogKeepsTwentyEntriesOfAWeekNewestFirst) {
    EXPECT_TRUE(m_store.record(entryAt(start - days{7} - seconds{1})));
    EXPECT_TRUE(m_store.record(entryAt(start - days{7})));
    EXPECT_EQ(m_store.load().entries.size(), 2U);
    for (int i = 0; i < 19; ++i) {
        EXPECT_TRUE(m_store.record(entryAt(start)));
    }
    EXPECT_EQ(open().load().entries.size(), 20U);
    EXPECT_EQ(open().load().entries.back().date, start - days{7}) << "exactly a week old";
    EXPECT_TRUE(m_store.record(entryAt(start)));
    EXPECT_EQ(open().load().entries.size(), 20U);
    EXPECT_EQ(open().load().entries.back().date, start) << "a twenty-first drops the oldest";
}

TEST_F(HistoryStoresTest, ClearingEmptiesTheFile) {
    m_store.record(entryAt(start));
    EXPECT_TRUE(m_store.clear());
    EXPECT_EQ(onDisk("restore-log.json"),
              (nlohmann::json{{"version", 1}, {"log", {{"entries", nlohmann::json::array()}}}}));
}

TEST_F(HistoryStoresTest, AFailedWriteIsReportedAndForgotten) {
    m_files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_FALSE(m_store.record(entryAt(start)));
    EXPECT_FALSE(m_store.clear());
    EXPECT_TRUE(m_store.load().entries.empty());
}

TEST_F(HistoryStoresTest, ALogWithAnOutcomeOfALaterVersionIsPutAside) {
    auto entry = entryAt(start);
    entry.items.emplace_back();
    m_store.record(entry);
    auto file = onDisk("restore-log.json");
    file["log"]["entries"][0]["items"][0]["outcome"] = "swapped";
    m_files.put("/v/restore-log.json", file.dump());
    EXPECT_TRUE(open().load().entries.empty());
    EXPECT_EQ(m_files.content("/v/restore-log.json.corrupt"), file.dump());
}

RC_GTEST_PROP(RestoreLogProperties, ARecordedLogStaysSortedAndCapped,
              (const std::vector<std::uint16_t>& pauses)) {
    MemoryFileSystem files;
    auto store = RestoreLogStore::open("/v", files).value();
    Date now = start;
    for (const auto pause : pauses) {
        now += seconds{std::int64_t{pause} * 3};
        RC_ASSERT(store.record(entryAt(now)));
        const auto entries = store.load().entries;
        RC_ASSERT(entries.front().date == now);
        RC_ASSERT(entries.size() <= RestoreLog::maxEntries);
        RC_ASSERT(std::ranges::is_sorted(entries, std::ranges::greater{}, &RestoreLog::Entry::date));
        RC_ASSERT(entries.back().date >= now - days{7});
    }
}

TEST_F(HistoryStoresTest, ReceiptsAndUsageAreBareRecords) {
    auto receipts = openRestoreReceipts("/v", m_files).value();
    auto usage = openUsageStats("/v", m_files).value();
    EXPECT_TRUE(receipts.update([](RestoreReceipts& record) { record.record(3, start); }));
    EXPECT_TRUE(usage.update([](UsageStats& record) { record.recordUndo(2, "desk", start); }));
    EXPECT_EQ(onDisk("receipts.json"), nlohmann::json(receipts.load()));
    EXPECT_EQ(onDisk("usage.json"), nlohmann::json(usage.load()));
    EXPECT_EQ(openRestoreReceipts("/v", m_files).value().load().windowsLast7Days(start), 3);
    EXPECT_EQ(openUsageStats("/v", m_files).value().load().undoUses, 1);
}

TEST_F(HistoryStoresTest, UsageOfANewerProgramKeepsWhatWeDoNotKnow) {
    auto json = nlohmann::json(UsageStats{});
    json["coffees"] = 7;
    m_files.put("/v/usage.json", json.dump());
    auto usage = openUsageStats("/v", m_files).value();
    EXPECT_TRUE(usage.update([](UsageStats& record) { record.recordUndo(2, "desk", start); }));
    EXPECT_EQ(onDisk("usage.json").at("coffees"), 7);
    EXPECT_FALSE(onDisk("usage.json").contains("version"));
}

TEST_F(HistoryStoresTest, DamagedReceiptsAndUsageArePutAside) {
    for (const auto* content :
         {"[]", "{}", R"({"entries": [{"windowsRestored": 1}]})", R"({"restores": "many"})"}) {
        m_files.put("/v/receipts.json", content);
        m_files.put("/v/usage.json", content);
        EXPECT_EQ(openRestoreReceipts("/v", m_files).value().load(), RestoreReceipts{}) << content;
        EXPECT_EQ(openUsageStats("/v", m_files).value().load(), UsageStats{}) << content;
        EXPECT_EQ(m_files.content("/v/receipts.json.corrupt"), content);
        EXPECT_EQ(m_files.content("/v/usage.json.corrupt"), content);
    }
}

} // namespace vantrel

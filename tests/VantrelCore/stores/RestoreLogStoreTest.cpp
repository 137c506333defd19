#include "VantrelCore/stores/RestoreLogStore.h"

#include "tests/VantrelCore/stores/StoreTest.h"

namespace vantrel {

namespace {

using std::chrono::days;
using std::chrono::seconds;

const Date start{days{20'000}};

RestoreLog::Entry entryAt(Date date) {
    RestoreLog::Entry entry;
    entry.date = date;
    return entry;
}

using RestoreLogStoreTest = StoreTest<RestoreLogStore>;

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

} // namespace

} // namespace vantrel

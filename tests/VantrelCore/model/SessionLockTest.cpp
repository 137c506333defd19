#include "VantrelCore/model/SessionLock.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using Change = SessionLock::Change;

TEST(SessionLock, ASessionIsLockedWhileAnybodySaysSo) {
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

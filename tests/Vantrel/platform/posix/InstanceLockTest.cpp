#include "Vantrel/platform/posix/InstanceLock.h"

#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <fstream>
#include <gmock/gmock.h>

namespace vantrel {
namespace {

constexpr std::chrono::milliseconds noPatience(0);

TEST(InstanceLock, IsHeldByOneAtATimeAndNamesItsHolder) {
    const TemporaryFolder folder;
    {
        // What an earlier holder left does not count.
        std::ofstream(folder.path() / InstanceLock::fileName) << std::string(500, 'x');
        const auto first = InstanceLock::take(folder.path(), noPatience);
        ASSERT_TRUE(first);
        EXPECT_FALSE(first->problem());
        const auto second = InstanceLock::take(folder.path(), noPatience);
        ASSERT_FALSE(second);
        EXPECT_THAT(second.error(), testing::StartsWith("process " + std::to_string(::getpid()) + " on "));
    }
    EXPECT_TRUE(InstanceLock::take(folder.path(), noPatience));
}

TEST(InstanceLock, LetsTheProgramRunWhereNothingCanBeLocked) {
    const TemporaryFolder folder;
    const auto lock = InstanceLock::take(folder.path() / "missing", noPatience);
    ASSERT_TRUE(lock);
    EXPECT_EQ(lock->problem(), std::errc::no_such_file_or_directory);
}

} // namespace
} // namespace vantrel

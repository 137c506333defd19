// A store's file survives a program that is killed while it writes.
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <array>
#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vantrel {

namespace {

Layout layoutWith(std::size_t windows) {
    Layout layout;
    layout.configID = "desk";
    layout.layoutName = Layout::defaultName;
    layout.windows.resize(windows);
    for (auto& window : layout.windows) {
        window.title = std::to_string(windows);
    }
    return layout;
}

// Never returns: writes layouts of changing size until killed, and says so after each write.
[[noreturn]] void writeForEver(const std::filesystem::path& folder, int saved) {
    PosixFileSystem files;
    auto store = LayoutStore::open(folder, files);
    for (std::size_t i = 0; store && store->save(layoutWith(50 + i % 7 * 100)); ++i) {
        if (::write(saved, "s", 1) != 1) {
            break;
        }
    }
    ::_exit(1);
}

TEST(KilledWriter, LeavesAWholeReadableFileAndNoGrowingHeapOfLeftovers) {
    const TemporaryFolder folder;
    std::mt19937 random(20251121);
    std::uniform_int_distribution<int> microseconds(0, 6000);
    for (int round = 0; round < 60; ++round) {
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            writeForEver(folder.path(), pipe[1]);
        }
        ::close(pipe[1]);
        char byte = 0;
        const auto firstSave = ::read(pipe[0], &byte, 1);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ::close(pipe[0]);
        ASSERT_EQ(firstSave, 1);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the child failed to write";

        PosixFileSystem files;
        auto store = LayoutStore::open(folder.path(), files).value();
        const auto layout = store.layout("desk", "Default");
        ASSERT_TRUE(layout.has_value()) << "round " << round;
        ASSERT_FALSE(layout->windows.empty());
        EXPECT_EQ(*layout, layoutWith(layout->windows.size()));
        EXPECT_LE(folder.names().size(), 2U);
    }
    PosixFileSystem files;
    ASSERT_TRUE(LayoutStore::open(folder.path(), files).value().save(layoutWith(1)));
    EXPECT_THAT(folder.names(), testing::ElementsAre("layouts.json"));
}

} // namespace

} // namespace vantrel

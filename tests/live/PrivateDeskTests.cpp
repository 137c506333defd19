// The private desk itself: what the other live tests and the demonstration rely on.
#include "tests/live/WindowManagers.h"
#include "tests/live/desk/PrivateDesk.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrel::live {
namespace {

constexpr MonitorPlace left{0, 0, 1280, 1024};
constexpr MonitorPlace right{1280, 0, 1600, 900};

// A process that has ended but was not collected yet has no program any more.
bool isAlive(pid_t pid) {
    std::error_code error;
    return !std::filesystem::read_symlink("/proc/" + std::to_string(pid) + "/exe", error).empty();
}

class PrivateDeskUnder : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(WindowManagers, PrivateDeskUnder, testedWindowManagers(), windowManagerName);

TEST_P(PrivateDeskUnder, PutsAWindowWhereItIsAskedTo) {
    PrivateDesk desk({left, right}, GetParam());
    const SeenWindow editor = desk.open({"xterm", "-T", "one"});
    EXPECT_EQ(editor.className, "XTerm");
    EXPECT_EQ(editor.title, "one");

    const Rect target{{1400, 100}, {700, 500}};
    desk.place(editor.client, target);

    EXPECT_TRUE(desk.connection().waitUntil([&] {
        const auto now = seenWindow(desk.connection(), editor.client);
        // A terminal keeps to whole characters under openbox.
        return now && now->frame.origin == target.origin && std::abs(now->frame.width() - 700) < 20;
    }));
}

TEST_P(PrivateDeskUnder, TakesTheWindowsOfAnUnpluggedMonitorOntoTheOther) {
    PrivateDesk desk({left, right}, GetParam());
    const SeenWindow window = desk.open({"galculator"});
    desk.place(window.client, {{1500, 100}, window.frame.size});
    ASSERT_TRUE(desk.connection().waitUntil([&] {
        const auto now = seenWindow(desk.connection(), window.client);
        return now && now->frame.minX() >= right.x;
    }));

    desk.monitors().unplug(1);

    EXPECT_TRUE(desk.connection().waitUntil([&] {
        const auto now = seenWindow(desk.connection(), window.client);
        return now && now->frame.minX() < left.width;
    }));
}

// The process is killed outright, so nothing of ours can clean up.
TEST(PrivateDesk, LeavesNothingBehindWhenItsOwnerIsKilled) {
    std::array<int, 2> report{};
    ASSERT_EQ(pipe(report.data()), 0);
    const pid_t owner = fork();
    if (owner == 0) {
        PrivateDesk desk({left}, "openbox");
        const SeenWindow window = desk.open({"xterm"});
        const std::string home = desk.home().path().string() + "\n" + std::to_string(window.pid) + "\n";
        [[maybe_unused]] const ssize_t written = write(report[1], home.data(), home.size());
        pause();
        _exit(0);
    }
    close(report[1]);
    std::string told;
    char character = 0;
    while (std::count(told.begin(), told.end(), '\n') < 2 && read(report[0], &character, 1) == 1) {
        told += character;
    }
    close(report[0]);
    const std::filesystem::path home = told.substr(0, told.find('\n'));
    const pid_t terminal = std::stoi(told.substr(told.find('\n') + 1));
    ASSERT_GT(terminal, 0);
    ASSERT_TRUE(isAlive(terminal));

    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);

    EXPECT_TRUE(waitUntil([&] { return !isAlive(terminal); }));
    EXPECT_TRUE(std::filesystem::exists(home));
    const TemporaryHome next;
    EXPECT_FALSE(std::filesystem::exists(home));
}

} // namespace
} // namespace vantrel::live

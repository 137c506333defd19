// The private desk itself, on which the other live tests and the demo rely.
#include "tools/desk/PrivateDesk.h"
#include "tools/desk/ReadyPipe.h"

#include <csignal>
#include <filesystem>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrel::tools {
namespace {

// A zombie has no executable.
bool isAlive(pid_t pid) {
    std::error_code error;
    return !std::filesystem::read_symlink(fmt::format("/proc/{}/exe", pid), error).empty();
}

// SIGKILL leaves the owner no chance to clean up.
TEST(PrivateDesk, LeavesNothingBehindWhenItsOwnerIsKilled) {
    ReadyPipe pipe;
    const pid_t owner = fork();
    if (owner == 0) {
        PrivateDesk desk({{0, 0, 1280, 1024}}, "openbox");
        const auto words = fmt::format("{} {}\n", desk.open({"xterm"}).pid, desk.home().path().string());
        [[maybe_unused]] const ssize_t written = write(pipe.writeEnd(), words.data(), words.size());
        pause();
        _exit(0);
    }
    const std::string told = pipe.line().value_or("0 ");
    const pid_t terminal = std::stoi(told);
    const std::filesystem::path home = told.substr(told.find(' ') + 1);
    ASSERT_GT(terminal, 0);
    ASSERT_TRUE(isAlive(terminal));
    ASSERT_TRUE(std::filesystem::exists(home));

    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);

    EXPECT_TRUE(waitUntil([&] { return !isAlive(terminal); }));
    const TemporaryHome next;
    EXPECT_FALSE(std::filesystem::exists(home));
}

} // namespace
} // namespace vantrel::tools

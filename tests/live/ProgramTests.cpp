// The program as a user meets it: start, end, what it says when something is missing, and commands.
#include "tests/live/VantrelDesk.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>
#include <random>
#include <thread>
#include <utility>

namespace vantrel::live {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

// Every store can be read, none was moved aside, and nothing crashed.
void expectWholeFiles(const VantrelDesk& desk) {
    for (const auto& entry : std::filesystem::directory_iterator(desk.vantrelFolder())) {
        const auto name = entry.path().filename().string();
        EXPECT_THAT(name, Not(HasSubstr("corrupt")));
        if (name.ends_with(".json")) {
            std::ifstream stream(entry.path());
            EXPECT_TRUE(nlohmann::json::parse(stream, nullptr, false).is_object()) << name;
        }
    }
    EXPECT_TRUE(std::filesystem::is_empty(desk.vantrelFolder() / "crashes"));
}

TEST(Program, EndsWithASentenceWhenWhatItNeedsIsMissingOrGoes) {
    const VantrelDesk desk("");
    const std::vector<std::pair<std::string, std::string>> rows{
        {"DISPLAY", "DISPLAY is not set"},
        {"DISPLAY=:9999", "No X server answers"},
        {"DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent", "no session bus"},
    };
    for (const auto& [change, part] : rows) {
        const auto [code, output] = desk.run({VANTREL_PROGRAM}, {change});
        EXPECT_EQ(code, 1);
        EXPECT_THAT(output, AllOf(HasSubstr("vantrel: "), HasSubstr(part)));
        EXPECT_EQ(std::ranges::count(output, '\n'), 1) << output;
    }
    // A second server, because the desk needs its own.
    XServer other(desk.home());
    auto run = desk.startVantrel({"DISPLAY=" + other.display()});
    other.process().end();
    const auto ended = run.ended();
    EXPECT_EQ(ended.code, 1);
    EXPECT_THAT(ended.output, HasSubstr("The connection to the X server was lost."));
}

TEST(Program, SleepsBetweenItsTicksAndEndsOnASignal) {
    VantrelDesk desk("openbox");
    desk.open({"galculator"});
    for (const int signal : {SIGTERM, SIGINT}) {
        auto run = desk.startVantrel({"WAYLAND_DISPLAY=wayland-0"});
        EXPECT_THAT(run.output(), HasSubstr("only the windows of X11 programs"));
        const auto wakeUps = [tasks = fmt::format("/proc/{}/task", run.process().pid())] {
            long total = 0;
            for (const auto& task : std::filesystem::directory_iterator(tasks)) {
                std::ifstream status(task.path() / "status");
                for (std::string key; status >> key;) {
                    long count = 0;
                    total += key == "voluntary_ctxt_switches:" && status >> count ? count : 0;
                }
            }
            return total;
        };
        // A loop that polls would wake hundreds of times a second. Starting up may take a few tries.
        constexpr long mostInTwoSeconds = 60;
        long before = wakeUps();
        EXPECT_TRUE(waitUntil([&] {
            std::this_thread::sleep_for(std::chrono::seconds(2));
            const long last = std::exchange(before, wakeUps());
            return before - last <= mostInTwoSeconds;
        }));
        EXPECT_EQ(run.endedBy(signal).code, 0) << run.output();
        const auto status = desk.control({"status"});
        EXPECT_EQ(status.code, 3);
        EXPECT_THAT(status.output, HasSubstr("vantrel is not running. Start it with: vantrel"));
    }
    EXPECT_EQ(desk.logged("system events: sleep or locks may go unnoticed: there is no system bus"), 2U);
}

TEST(Program, RestoresWhatItSavedBeforeARestart) {
    VantrelDesk desk("openbox");
    const auto window = desk.open({"galculator"}).client;
    const auto terminal = desk.open({"xterm", "-T", "notes"}).pid;
    auto first = desk.startVantrel();
    EXPECT_THAT(desk.refused({"restore"}), HasSubstr("Nothing is remembered for this desk yet."));
    EXPECT_THAT(desk.done({"save"}), HasSubstr("Saved 2 windows for"));
    const auto home = desk.frame(window);
    EXPECT_EQ(first.endedBy(SIGTERM).code, 0);

    desk.drag(window, {1500, 300});
    const auto second = desk.startVantrel();
    EXPECT_THAT(desk.done({"restore"}), AllOf(HasSubstr("Restored 2 of 2 windows"), HasSubstr("Galculator")));
    EXPECT_EQ(desk.frame(window), home);
    kill(static_cast<pid_t>(terminal), SIGKILL);
    ASSERT_TRUE(waitUntil([&] { return seenWindows(desk.connection()).size() == 1; }));
    EXPECT_EQ(desk.asked({"restore"}).at("skipped"), 1);
    EXPECT_THAT(desk.done({"desks"}), AllOf(HasSubstr(" Galculator"), HasSubstr("1600")));
    EXPECT_THAT(desk.done({"log"}), HasSubstr("restore report: 1 restored, 0 failed, 1 skipped"));

    const auto entry = desk.home().configFolder() / "autostart" / "vantrel.desktop";
    desk.done({"settings", "set", "launchAtLogin", "true"});
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(entry); }));
    EXPECT_EQ(desk.run({"desktop-file-validate", entry.string()}).output, "");
    desk.home().writeSettings("# Somebody else wrote this.\n");
    EXPECT_TRUE(waitUntil([&] { return !std::filesystem::exists(entry); }));
}

TEST(Program, SaysOnceThatATilingWindowManagerKeepsItsTiles) {
    VantrelDesk desk("i3");
    const auto first = desk.open({"xterm", "-T", "letters"}).client;
    desk.open({"xterm", "-T", "notes"});
    desk.awaitStill();
    const auto run = desk.startVantrel();
    desk.done({"save"});
    const auto before = desk.frame(first);
    desk.run({"i3-msg", "layout splitv"});
    ASSERT_TRUE(waitUntil([&] { return desk.frame(first) != before; }));
    EXPECT_THAT(desk.done({"restore"}), HasSubstr("2 skipped"));
    EXPECT_EQ(desk.logged("0 failed, 2 skipped, 0 retried, 2 expected"), 1U);
    EXPECT_EQ(desk.logged("; 2 windows left to the window manager, which tiles"), 1U);
}

TEST(KilledProgram, LosesNoLayoutAtAnyMomentOfASave) {
    VantrelDesk desk("openbox");
    desk.open({"galculator"});
    {
        const auto run = desk.startVantrel();
        desk.done({"save"});
    }
    // The same moments in every run.
    std::mt19937 moments(20260);
    std::uniform_int_distribution<int> milliseconds(0, 60);
    for (int round = 0; round < 10; ++round) {
        auto run = desk.startVantrel();
        ProgramRun saving(desk,
                          {"sh", "-c", std::string("while ") + VANTRELCTL_PROGRAM + " save; do :; done"});
        ASSERT_TRUE(waitUntil([&] { return saving.output().contains("Saved"); }))
            << saving.output() << run.output();
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(moments)));
        ASSERT_EQ(run.endedBy(SIGKILL).code, 128 + SIGKILL);
        saving.process().end();
        expectWholeFiles(desk);
    }
    const auto run = desk.startVantrel();
    EXPECT_THAT(desk.done({"restore"}), HasSubstr("Restored 1 of 1 window"));
}

TEST(KilledProgram, EndsSoonInTheMiddleOfARestoreAndLosesNothing) {
    VantrelDesk desk("openbox");
    const std::vector<xcb_window_t> clients{desk.open({"xterm", "-T", "one"}).client,
                                            desk.open({"xterm", "-T", "two"}).client};
    auto run = desk.startVantrel();
    desk.done({"save"});
    const auto home = desk.frames(clients);
    for (const auto client : clients) {
        desk.drag(client, {600, 400});
    }
    // With the window manager stopped, the restore is certainly still waiting.
    kill(desk.windowManagerPid(), SIGSTOP);
    ProgramRun restoring(desk, {VANTRELCTL_PROGRAM, "restore"});
    EXPECT_TRUE(waitUntil([&] { return desk.control({"status", "--json"}).output.contains("restoring"); }))
        << restoring.output();
    EXPECT_EQ(run.endedBy(SIGTERM).code, 0) << run.output();
    kill(desk.windowManagerPid(), SIGCONT);
    EXPECT_NE(restoring.ended().code, 0) << restoring.output();

    expectWholeFiles(desk);
    const auto next = desk.startVantrel();
    desk.done({"restore"});
    EXPECT_EQ(desk.frames(clients), home);
}

} // namespace
} // namespace vantrel::live

// The program as a user meets it: starting, ending, what it says when something is missing, and the commands.
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

// Every store can be read, none was moved aside, and nothing has crashed.
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

TEST(Program, EndsWithASentenceWhenWhatItNeedsIsMissing) {
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
}

TEST(Program, RunsOnceSaysWhatItCannotSeeAndEndsWhenAskedTo) {
    const VantrelDesk desk("openbox");
    for (const int signal : {SIGTERM, SIGINT}) {
        auto first = desk.startVantrel({"WAYLAND_DISPLAY=wayland-0"});
        EXPECT_THAT(first.output(), HasSubstr("only the windows of X11 programs"));
        const auto second = desk.run({VANTREL_PROGRAM});
        EXPECT_EQ(second.code, 3);
        EXPECT_THAT(second.output, HasSubstr("already running"));
        EXPECT_TRUE(first.process().isRunning());

        EXPECT_EQ(first.endedBy(signal).code, 0) << first.output();
        const auto status = desk.control({"status"});
        EXPECT_EQ(status.code, 3);
        EXPECT_THAT(status.output, HasSubstr("vantrel is not running. Start it with: vantrel"));
    }
    EXPECT_EQ(desk.logged("system events: sleep or locks may go unnoticed: there is no system bus"), 2U);
}

TEST(Program, EndsWithTheXServer) {
    // A server of its own: ending the desk's would take the desk along.
    const VantrelDesk desk("openbox");
    XServer other(desk.home());
    auto run = desk.startVantrel({"DISPLAY=" + other.display()});
    other.process().end();
    const auto ended = run.ended();
    EXPECT_EQ(ended.code, 1);
    EXPECT_THAT(ended.output, HasSubstr("The connection to the X server was lost."));
}

// Between its ticks it sleeps: a loop that polls would wake hundreds of times a second.
TEST(Program, SleepsWhileNothingHappens) {
    VantrelDesk desk("openbox");
    desk.open({"galculator"});
    auto run = desk.startVantrel();
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
    // What starting takes may still go on.
    constexpr long mostInTwoSeconds = 60;
    long before = wakeUps();
    EXPECT_TRUE(waitUntil([&] {
        std::this_thread::sleep_for(std::chrono::seconds(2));
        const long last = std::exchange(before, wakeUps());
        return before - last <= mostInTwoSeconds;
    }));
}

TEST(Program, SavesAndRestoresOverTheBusAlsoAfterARestart) {
    VantrelDesk desk("openbox");
    const auto window = desk.open({"galculator"}).client;
    auto& terminal = desk.start({"xterm", "-T", "notes"});
    ASSERT_TRUE(waitUntil([&] {
        return std::ranges::count(seenWindows(desk.connection()), true, &SeenWindow::isViewable) == 2;
    }));
    auto first = desk.startVantrel();
    EXPECT_THAT(desk.refused({"restore"}), HasSubstr("Nothing is remembered for this desk yet."));
    EXPECT_THAT(desk.done({"save"}), HasSubstr("Saved 2 windows for"));
    const auto home = desk.frame(window);
    EXPECT_EQ(first.endedBy(SIGTERM).code, 0);

    desk.drag(window, {1500, 300});
    const auto second = desk.startVantrel();
    EXPECT_THAT(desk.done({"restore"}), AllOf(HasSubstr("Restored 2 of 2 windows"), HasSubstr("Galculator")));
    EXPECT_EQ(desk.frame(window), home);
    terminal.end();
    ASSERT_TRUE(waitUntil([&] { return seenWindows(desk.connection()).size() == 1; }));
    const auto report = desk.asked({"restore"});
    EXPECT_EQ(report.at("restored"), 1);
    EXPECT_EQ(report.at("skipped"), 1);

    const auto status = desk.asked({"status"});
    EXPECT_EQ(status.at("savedWindows"), 2);
    EXPECT_EQ(status.at("displays").size(), 2U);
    EXPECT_EQ(desk.asked({"desks"}).at("desks").at(0).at("layouts").at(0).at("windows").size(), 2U);
    EXPECT_THAT(desk.done({"desks"}), AllOf(HasSubstr(" Galculator"), HasSubstr("1600")));
    EXPECT_THAT(desk.done({"log"}), HasSubstr("restore report: 1 restored, 0 failed, 1 skipped"));
}

class KilledProgram : public UnderWindowManager {};

INSTANTIATE_TEST_SUITE_P(Live, KilledProgram, windowManagers(), windowManagerName);

TEST_P(KilledProgram, LosesNoLayoutAtAnyMomentOfASave) {
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
        ASSERT_TRUE(waitUntil([&] { return saving.output().find("Saved") != std::string::npos; }))
            << saving.output() << run.output();
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(moments)));
        ASSERT_EQ(run.endedBy(SIGKILL).code, 128 + SIGKILL);
        saving.process().end();
        expectWholeFiles(desk);
    }
    const auto run = desk.startVantrel();
    EXPECT_THAT(desk.done({"restore"}), HasSubstr("Restored 1 of 1 window"));
}

TEST_P(KilledProgram, EndsSoonInTheMiddleOfARestoreAndLosesNothing) {
    std::vector<xcb_window_t> clients;
    for (const char* const title : {"one", "two", "three"}) {
        clients.push_back(desk.open({"xterm", "-T", title}).client);
    }
    auto run = desk.startVantrel();
    desk.done({"save"});
    const auto home = desk.frames(clients);
    for (const auto client : clients) {
        desk.drag(client, {600, 400});
    }
    // Nobody answers the restore, so that it is surely still at work.
    kill(desk.windowManagerPid(), SIGSTOP);
    ProgramRun restoring(desk, {VANTRELCTL_PROGRAM, "restore"});
    EXPECT_TRUE(waitUntil([&] {
        return desk.control({"status", "--json"}).output.find("restoring") != std::string::npos;
    })) << restoring.output();
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

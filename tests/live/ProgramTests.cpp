// The program as a user meets it: starting, ending, what it says when something is missing, and the commands.
#include "tests/live/ProgramRun.h"

#include <chrono>
#include <csignal>
#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <random>
#include <thread>

namespace vantrel::live {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr MonitorPlace left{0, 0, 1280, 1024};
constexpr MonitorPlace right{1280, 0, 1600, 900};

std::filesystem::path layoutsFile(const PrivateDesk& desk) {
    return desk.home().dataFolder() / "Vantrel" / "layouts.json";
}

// Every store can be read, none was moved aside, and nothing has crashed.
void expectWholeFiles(const PrivateDesk& desk) {
    const auto folder = layoutsFile(desk).parent_path();
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const auto name = entry.path().filename().string();
        EXPECT_THAT(name, Not(HasSubstr("corrupt")));
        if (name.ends_with(".json")) {
            std::ifstream stream(entry.path());
            EXPECT_TRUE(nlohmann::json::parse(stream, nullptr, false).is_object()) << name;
        }
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder / "crashes"));
}

// One sentence on one line.
void expectOneSentence(const Ended& ended, const std::string& part) {
    EXPECT_EQ(ended.code, 1);
    EXPECT_THAT(ended.output, AllOf(HasSubstr("vantrel: "), HasSubstr(part)));
    EXPECT_EQ(std::ranges::count(ended.output, '\n'), 1) << ended.output;
}

TEST(Program, EndsWithASentenceWhenWhatItNeedsIsMissing) {
    PrivateDesk desk({left}, "");
    expectOneSentence(ProgramRun(desk, vantrelCommand(), {"DISPLAY"}).ended(), "DISPLAY is not set");
    expectOneSentence(ProgramRun(desk, vantrelCommand(), {"DISPLAY=:9999"}).ended(), "No X server answers");
    expectOneSentence(
        ProgramRun(desk, vantrelCommand(), {"DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent"}).ended(),
        "no session bus");
}

TEST(Program, SaysWhatItCannotSeeInAWaylandSessionAndGoesOn) {
    PrivateDesk desk({left}, "openbox");
    ProgramRun run(desk, vantrelCommand(), {"WAYLAND_DISPLAY=wayland-0"});
    ASSERT_TRUE(waitUntil([&] { return vantrelctl(desk, {"status"}).code == 0; })) << run.output();
    EXPECT_THAT(run.output(), HasSubstr("only the windows of X11 programs"));
}

TEST(Program, RunsOnlyOnce) {
    PrivateDesk desk({left}, "openbox");
    auto first = startVantrel(desk);
    const auto second = ProgramRun(desk, vantrelCommand()).ended();
    EXPECT_EQ(second.code, 3);
    EXPECT_THAT(second.output, HasSubstr("runs already"));
    EXPECT_TRUE(first.process().isRunning());
}

TEST(Program, EndsCleanlyWhenAskedTo) {
    PrivateDesk desk({left}, "openbox");
    for (const int signal : {SIGTERM, SIGINT}) {
        auto run = startVantrel(desk);
        kill(run.process().pid(), signal);
        EXPECT_EQ(run.ended().code, 0) << run.output();
        const auto status = vantrelctl(desk, {"status"});
        EXPECT_EQ(status.code, 3);
        EXPECT_THAT(status.output, HasSubstr("vantrel is not running. Start it with: vantrel"));
    }
}

TEST(Program, EndsWithTheXServer) {
    // A server of its own: ending the desk's would take the desk along.
    PrivateDesk desk({left}, "openbox");
    XServer other(desk.home());
    ProgramRun run(desk, vantrelCommand(), {"DISPLAY=" + other.display()});
    ASSERT_TRUE(waitUntil([&] { return vantrelctl(desk, {"status"}).code == 0; })) << run.output();
    other.process().end();
    const auto ended = run.ended();
    EXPECT_EQ(ended.code, 1);
    EXPECT_THAT(ended.output, HasSubstr("The X server has gone away."));
}

TEST(Program, SavesAndRestoresOverTheBus) {
    PrivateDesk desk({left, right}, "openbox");
    const auto window = desk.open({"galculator"});
    const auto run = startVantrel(desk);

    const auto nothing = vantrelctl(desk, {"restore"});
    EXPECT_EQ(nothing.code, 1);
    EXPECT_THAT(nothing.output, HasSubstr("Nothing is remembered for this desk yet."));

    const auto saved = vantrelctl(desk, {"save"});
    EXPECT_EQ(saved.code, 0);
    EXPECT_THAT(saved.output, HasSubstr("Saved 1 window for"));
    const auto home = seenWindow(desk.connection(), window.client).value().frame;

    desk.place(window.client, {{1500, 300}, home.size});
    ASSERT_TRUE(desk.connection().waitUntil(
        [&] { return seenWindow(desk.connection(), window.client)->frame.minX() == 1500; }));
    const auto restored = vantrelctl(desk, {"restore"});
    EXPECT_EQ(restored.code, 0);
    EXPECT_THAT(restored.output, AllOf(HasSubstr("Restored 1 of 1 window"), HasSubstr("Galculator")));
    EXPECT_EQ(seenWindow(desk.connection(), window.client)->frame, home);

    const auto status = nlohmann::json::parse(vantrelctl(desk, {"status", "--json"}).output);
    EXPECT_EQ(status.at("savedWindows"), 1);
    EXPECT_EQ(status.at("displays").size(), 2U);
    const auto desks = nlohmann::json::parse(vantrelctl(desk, {"desks", "--json"}).output);
    EXPECT_EQ(desks.at("desks").at(0).at("layouts").at(0).at("windows").size(), 1U);
    EXPECT_THAT(vantrelctl(desk, {"desks"}).output, AllOf(HasSubstr("1 Galculator"), HasSubstr("1600")));
    EXPECT_THAT(vantrelctl(desk, {"log"}).output,
                HasSubstr("restore report: 1 restored, 0 failed, 0 skipped"));
}

TEST(Program, AWindowThatIsGoneIsReportedAsSkipped) {
    PrivateDesk desk({left}, "openbox");
    desk.open({"galculator"});
    auto& terminal = desk.start({"xterm", "-T", "notes"});
    ASSERT_TRUE(waitUntil([&] { return seenWindows(desk.connection()).size() == 2; }));
    const auto run = startVantrel(desk);
    ASSERT_EQ(vantrelctl(desk, {"save"}).code, 0);
    terminal.end();
    ASSERT_TRUE(waitUntil([&] { return seenWindows(desk.connection()).size() == 1; }));

    const auto report = nlohmann::json::parse(vantrelctl(desk, {"restore", "--json"}).output);
    EXPECT_EQ(report.at("restored"), 1);
    EXPECT_EQ(report.at("skipped"), 1);
    EXPECT_EQ(report.at("failed"), 0);
}

TEST(Program, RemembersTheDeskAcrossARestart) {
    PrivateDesk desk({left}, "openbox");
    const auto window = desk.open({"galculator"});
    {
        auto run = startVantrel(desk);
        ASSERT_EQ(vantrelctl(desk, {"save"}).code, 0);
        kill(run.process().pid(), SIGTERM);
        ASSERT_EQ(run.ended().code, 0);
    }
    const auto home = seenWindow(desk.connection(), window.client).value().frame;
    desk.place(window.client, {{50, 500}, home.size});
    ASSERT_TRUE(desk.connection().waitUntil(
        [&] { return seenWindow(desk.connection(), window.client)->frame.minX() == 50; }));
    const auto run = startVantrel(desk);
    EXPECT_EQ(vantrelctl(desk, {"restore"}).code, 0);
    EXPECT_EQ(seenWindow(desk.connection(), window.client)->frame, home);
}

TEST(Program, KilledAtAnyMomentOfASaveItLosesNoLayout) {
    PrivateDesk desk({left}, "openbox");
    desk.open({"galculator"});
    {
        const auto run = startVantrel(desk);
        ASSERT_EQ(vantrelctl(desk, {"save"}).code, 0);
    }
    // The same moments in every run.
    std::mt19937 moments(20260);
    std::uniform_int_distribution<int> milliseconds(0, 60);
    for (int round = 0; round < 10; ++round) {
        auto run = startVantrel(desk);
        ProgramRun saving(desk,
                          {"sh", "-c", std::string("while ") + VANTRELCTL_PROGRAM + " save; do :; done"});
        ASSERT_TRUE(waitUntil([&] { return saving.output().find("Saved") != std::string::npos; }))
            << saving.output() << run.output();
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(moments)));
        kill(run.process().pid(), SIGKILL);
        ASSERT_EQ(run.ended().code, 128 + SIGKILL);
        saving.process().end();

        std::ifstream stream(layoutsFile(desk));
        const auto stored = nlohmann::json::parse(stream, nullptr, false);
        ASSERT_TRUE(stored.is_object()) << "round " << round;
        EXPECT_EQ(stored.at("layouts").at(0).at("windows").size(), 1U);
    }
    const auto run = startVantrel(desk);
    EXPECT_EQ(vantrelctl(desk, {"restore"}).code, 0);
    expectWholeFiles(desk);
}

TEST(Program, EndedInTheMiddleOfARestoreItEndsSoonAndLosesNothing) {
    PrivateDesk desk({left}, "openbox");
    std::vector<SeenWindow> windows;
    for (const char* const title : {"one", "two", "three"}) {
        windows.push_back(desk.open({"xterm", "-T", title}));
    }
    {
        auto run = startVantrel(desk);
        ASSERT_EQ(vantrelctl(desk, {"save"}).code, 0);
        for (const auto& window : windows) {
            desk.place(window.client, {{600, 500}, seenWindow(desk.connection(), window.client)->frame.size});
        }
        ASSERT_TRUE(desk.connection().waitUntil([&] {
            return std::ranges::all_of(windows, [&](const SeenWindow& window) {
                return seenWindow(desk.connection(), window.client)->frame.minX() == 600;
            });
        }));
        // Nobody answers the restore, so that it is surely still at work.
        kill(desk.windowManagerPid(), SIGSTOP);
        ProgramRun restoring(desk, {VANTRELCTL_PROGRAM, "restore"});
        ASSERT_TRUE(waitUntil([&] {
            const auto status = vantrelctl(desk, {"status", "--json"});
            return status.output.find("restoring") != std::string::npos;
        })) << restoring.output();
        kill(run.process().pid(), SIGTERM);
        EXPECT_EQ(run.ended().code, 0) << run.output();
        kill(desk.windowManagerPid(), SIGCONT);
        EXPECT_NE(restoring.ended().code, 0) << restoring.output();
    }
    expectWholeFiles(desk);
    const auto run = startVantrel(desk);
    EXPECT_EQ(vantrelctl(desk, {"restore"}).code, 0);
    EXPECT_TRUE(std::ranges::none_of(windows, [&](const SeenWindow& window) {
        return seenWindow(desk.connection(), window.client)->frame.minX() == 600;
    }));
}

} // namespace
} // namespace vantrel::live

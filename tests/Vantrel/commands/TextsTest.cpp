// Messages on the session bus, and what a terminal shows of them.
#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/ScenesMessage.h"
#include "Vantrel/commands/StashesMessage.h"
#include "Vantrel/commands/StatusMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/terminal/DeskDrawing.h"
#include "Vantrel/commands/terminal/SceneTexts.h"
#include "Vantrel/commands/terminal/TextCells.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

namespace vantrel {
namespace {

std::string dateText(Date date) {
    return iso8601Text(date);
}

template <typename Message>
void expectToArrive(const Message& message) {
    EXPECT_EQ(nlohmann::json::parse(nlohmann::json(message).dump()).template get<Message>(), message);
}

StatusMessage exampleStatus() {
    StatusMessage status;
    status.version = "1.2";
    status.phase = {.name = "restored", .windows = 1, .seconds = 0.25, .text = "1 window put back in 0.3 s"};
    status.enabled = true;
    status.configID = std::string(32, 'a');
    status.configName = "Äußerer Bildschirm";
    status.activeLayoutName = "Reading";
    status.activePinned = true;
    status.pinPause = "paused until the displays change: a stash was brought back";
    status.savedWindows = 1;
    status.savedAt = dateFromIso8601("2025-03-01T08:15:00Z");
    status.layoutNames = {"Default", "Reading"};
    status.displays.resize(2);
    status.displays[0].name = "Laptop";
    status.displays[0].frame = {{0, 0}, {1920, 1200}};
    status.displays[1].name = "Monitor";
    status.displays[1].frame = {{1920, -240}, {2560, 1440}};
    status.supportDirectory = "/data/Vantrel";
    status.license = LicenseMessage::of({.kind = Entitlement::Kind::licensed,
                                         .reason = "Licensed.",
                                         .license = License{.id = "1",
                                                            .product = "vantrel",
                                                            .machine = "m",
                                                            .plan = "personal",
                                                            .issuedAt = *status.savedAt,
                                                            .expiresAt = status.savedAt,
                                                            .leasedUntil = status.savedAt,
                                                            .nonce = {},
                                                            .holder = "Ada"}});
    status.latestAvailable = "1.10";
    status.crashReports = 2;
    return status;
}

RestoreReport exampleReport() {
    using Kind = RestoreReport::Kind;
    RestoreReport report;
    report.elapsed = 0.124;
    report.items = {{"Editor", "org.editor", "notes", {Kind::restored, ""}},
                    {"Terminal", "org.term", "", {Kind::retried, ""}},
                    {"Mail", "org.mail", "Inbox", {Kind::skipped, "not running", "being started"}},
                    {"Game", "org.game", "Level 1", {Kind::failed, "app rejected the move"}}};
    return report;
}

// Of this desk with two layouts, and of another with none.
DesksMessage exampleDesks() {
    Layout first;
    first.layoutName = "Default";
    Layout reading = first;
    reading.layoutName = "Reading";
    reading.pinned = true;
    reading.windows.resize(2);
    return {{{"c", "Here", true, "Default", {first, reading}}, {"d", "There", false, "", {}}}};
}

StashesMessage exampleStashes() {
    Stash stash;
    stash.id = "0A1B2C3D-4E5F";
    stash.windowCount = 2;
    stash.deskName = "Monitor + Laptop";
    stash.appliedSceneName = "Focus";
    return {{stash}, stash.id};
}

ScenesMessage exampleScenes() {
    ScenesMessage scenes{.scenes = {}, .driftNudge = DriftNudgeInfo{"id", "Work", 3}};
    for (const auto& [name, windows] : {std::pair{"Work", 1U}, {"Späti", 4U}, {"Home", 0U}}) {
        scenes.scenes.push_back(
            {.scene = Scene::make(name, "desk", {}, Date{}), .deskName = "Studio", .isCurrentDesk = true});
        scenes.scenes.back().scene.layout.windows.resize(windows);
    }
    scenes.scenes[0].isLastApplied = true;
    scenes.scenes[0].scene.pinned = true;
    scenes.scenes[1].scene.opensMissingApps = false;
    scenes.scenes[2].isCurrentDesk = false;
    return scenes;
}

TEST(ControlMessages, RoundTrip) {
    expectToArrive(exampleStatus());
    expectToArrive(StatusMessage{});
    expectToArrive(exampleReport());
    expectToArrive(exampleDesks());
    expectToArrive(exampleStashes());
    expectToArrive(exampleScenes());
    auto incomplete = nlohmann::json(exampleStatus());
    incomplete.erase("enabled");
    EXPECT_ANY_THROW((void)incomplete.get<StatusMessage>());
}

TEST(CommandTexts, ReportsListProblemsFirstAndFitTheColumns) {
    const std::string heading = "Restored 2 of 4 windows in 124 ms, 1 after a retry, 1 skipped, 1 failed.\n";
    EXPECT_EQ(CommandTexts::report(exampleReport(), {}),
              heading + "  failed    Game                  app rejected the move: Level 1\n"
                        "  skipped   Mail                  not running (being started): Inbox\n"
                        "  retried   Terminal\n"
                        "  restored  Editor                notes\n");
    EXPECT_EQ(CommandTexts::report(exampleReport(), {.columns = 40}),
              heading + "  failed    Game                  app r…\n"
                        "  skipped   Mail                  not r…\n"
                        "  retried   Terminal\n"
                        "  restored  Editor                notes\n");
    EXPECT_EQ(CommandTexts::report({}, {}), "The saved layout contains no windows.\n");
}

TEST(CommandTexts, StatusListsDeskLayoutAndDisplays) {
    EXPECT_EQ(CommandTexts::status(exampleStatus(), {}, dateText),
              "state     1 window put back in 0.3 s\n"
              "desk      Äußerer Bildschirm\n"
              "layout    Reading · 1 window · saved 2025-03-01T08:15:00Z · pinned\n"
              "pin       paused until the displays change: a stash was brought back\n"
              "layouts   Default, Reading\n"
              "displays  Laptop 1920x1200 at 0,0\n"
              "          Monitor 2560x1440 at 1920,-240\n"
              "license   Licensed.\n"
              "files     /data/Vantrel\n"
              "crashes   2 reports not sent\n"
              "Update available · v1.10\n");
}

TEST(CommandTexts, DesksListTheirOtherLayouts) {
    const DeskDrawing::Options options{
        .columns = 80, .rows = 30, .characters = DeskDrawing::Characters::ascii};
    EXPECT_EQ(CommandTexts::desks(exampleDesks(), options, dateText),
              "Here (this desk)\n"
              "Default, 0 windows, saved 1970-01-01T00:00:00Z\n"
              "also: Reading, 2 windows, saved 1970-01-01T00:00:00Z, pinned\n"
              "\n"
              "There\n"
              "no layout saved yet\n");
}

TEST(CommandTexts, ListsMarkTheActiveEntryAndFitTheColumns) {
    DeskMessage desk = exampleDesks().desks[0];
    desk.activeLayoutName = "Reading";
    EXPECT_EQ(CommandTexts::layouts(desk, {.columns = 60}, dateText),
              "  Default · 0 windows · saved 1970-01-01T00:00:00Z\n"
              "* Reading · 2 windows · saved 1970-01-01T00:00:00Z · pinned\n");
    EXPECT_EQ(CommandTexts::stashes(exampleStashes(), {.columns = 76}, dateText),
              "* 0A1B2C3D  2 windows · kept until 1970-01-08T00:00:00Z · Monitor + Laptop …\n");
    EXPECT_EQ(SceneTexts::list(exampleScenes(), {}),
              "* Work   1 window · pinned\n"
              "  Späti  4 windows · opens no apps\n"
              "  Home   0 windows · Studio\n"
              "3 windows moved away from Work. To put them back: vantrelctl scenes reapply\n");
}

const DisplayInfo laptop = displayOf("Laptop", {{0, 0}, {1200, 800}});
const DisplayInfo monitor = displayOf("Monitor", {{1200, -400}, {2000, 1200}});

WindowRecord window(const std::string& app, Rect frame, std::int64_t order, const std::string& title = {}) {
    return {.bundleID = app,
            .appName = app,
            .title = title,
            .frame = frame,
            .displayUUID = "Laptop",
            .zOrder = order,
            .isGhost = {}};
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        result.push_back(line);
    }
    return result;
}

int widest(const std::string& text) {
    int columns = 0;
    for (const auto& line : lines(text)) {
        columns = std::max(columns, TextCells::width(line));
    }
    return columns;
}

TEST(DeskDrawing, DrawsDisplaysAndWindowsToScale) {
    const std::vector<WindowRecord> windows{window("Editor", {{0, 0}, {600, 800}}, 0),
                                            window("Mail", {{900, 100}, {1000, 500}}, 1)};
    EXPECT_EQ("\n" + DeskDrawing::drawing({laptop, monitor}, windows, {.columns = 64, .rows = 30}), R"(
                        ┏━ Monitor 2000×1200 ━━━━━━━━━━━━━━━━━━┓
                        ┃                                      ┃
                        ┃                                      ┃
                        ┃                                      ┃
┏━ Laptop 1200×800 ━━━━┓┃                                      ┃
┃┌─────────┐           ┃┃────────────┐                         ┃
┃│1 Editor │      ┌────┃┃l           │                         ┃
┃│         │      │2 Ma┃┃            │                         ┃
┃│         │      │    ┃┃────────────┘                         ┃
┃│         │      └────┃┃                                      ┃
┃└─────────┘           ┃┃                                      ┃
┗━━━━━━━━━━━━━━━━━━━━━━┛┗━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━┛
)");
}

TEST(DeskDrawing, FrontWindowsCoverThoseBehind) {
    const std::vector<WindowRecord> windows{window("Back", {{100, 100}, {1000, 600}}, 5),
                                            window("Front", {{300, 200}, {800, 400}}, 2)};
    EXPECT_EQ("\n" + DeskDrawing::drawing(
                         {laptop}, windows,
                         {.columns = 24, .rows = 30, .characters = DeskDrawing::Characters::ascii}),
              R"(
#= Laptop 1200x800 ====#
#                      #
#  +----------------+  #
#  |2 B+------------+  #
#  |   |1 Front     |  #
#  +---+------------+  #
#                      #
#======================#
)");
}

TEST(DeskDrawing, StaysWithinItsColumnsAndRows) {
    const auto tower = displayOf("高さ方向の画面", {{-1080, 0}, {1080, 19200}});
    const auto speck = displayOf("a very long display name", {{3200, 0}, {10, 10}});
    std::vector<WindowRecord> windows;
    for (int i = 0; i < 40; ++i) {
        windows.push_back(
            window("アプリケーション", {{-5000.0 + i * 400, i * 300.0}, {900, 700}}, i,
                   "title 🏳️‍🌈 \x1b[31m " + std::string(static_cast<std::size_t>(i) * 10, 'x')));
    }
    for (const int columns : {20, 40, 80, 200}) {
        const DeskDrawing::Options options{.columns = columns, .rows = 24};
        const std::vector displays{laptop, monitor, tower, speck};
        const auto drawn = DeskDrawing::drawing(displays, windows, options);
        EXPECT_LE(widest(drawn), columns);
        EXPECT_GT(widest(drawn), 0);
        EXPECT_LE(lines(drawn).size(), 26U);
        const auto listed = DeskDrawing::windowList(displays, windows, options);
        EXPECT_LE(widest(listed), columns);
        EXPECT_EQ(lines(listed).size(), windows.size());
        EXPECT_FALSE((drawn + listed).contains('\x1b'));
    }
}

TEST(DeskDrawing, ListsWindowsFrontToBack) {
    const std::vector<WindowRecord> windows{window("Editor", {{10.5, 20}, {600, 800}}, 9, "notes.txt"),
                                            window("日本語", {{0, 0}, {5, 6}}, 3, "")};
    EXPECT_EQ(DeskDrawing::windowList({laptop, monitor}, {}, {}), "");
    EXPECT_EQ(DeskDrawing::drawing({laptop}, windows, {.columns = 3}), "") << "no room";
    EXPECT_EQ(DeskDrawing::windowList({laptop, monitor}, windows, {}),
              "  1 日本語                                                  5×6 at 0,0 on Laptop\n"
              "  2 Editor           notes.txt                        600×800 at 10,20 on Laptop\n");
}

TEST(TextCells, CountsTerminalCells) {
    struct Case {
        const char* text;
        int width;
    };
    for (const auto& [text, width] :
         {Case{"abc", 3}, Case{"日本", 4}, Case{"é", 1}, Case{"e\u0301", 1}, Case{"👩‍👩‍👧", 2},
          Case{"❤️", 2}, Case{"\t", 1}, Case{"\xff", 1}, Case{"한글", 4}, Case{"", 0}}) {
        EXPECT_EQ(TextCells::width(text), width) << text;
    }
}

} // namespace
} // namespace vantrel

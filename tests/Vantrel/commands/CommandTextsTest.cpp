#include "Vantrel/commands/terminal/CommandTexts.h"

#include <gtest/gtest.h>

using namespace vantrel;

namespace {

std::string dateText(Date date) {
    return iso8601Text(date);
}

RestoreReport exampleReport() {
    using Kind = RestoreReport::Kind;
    RestoreReport report;
    report.elapsed = 0.124;
    report.items = {{"Editor", "org.editor", "notes", {Kind::restored, ""}},
                    {"Terminal", "org.term", "", {Kind::retried, ""}},
                    {"Mail", "org.mail", "Inbox", {Kind::skipped, "not running"}},
                    {"Game", "org.game", "Level 1", {Kind::failed, "app rejected the move"}}};
    return report;
}

} // namespace

TEST(CommandTexts, AReportNamesFirstWhatDidNotGoBack) {
    EXPECT_EQ(CommandTexts::report(exampleReport(), {}),
              "Restored 2 of 4 windows in 124 ms, 1 after a retry, 1 skipped, 1 failed.\n"
              "  failed    Game                  app rejected the move: Level 1\n"
              "  skipped   Mail                  not running: Inbox\n"
              "  retried   Terminal\n"
              "  restored  Editor                notes\n");
}

TEST(CommandTexts, AReportKeepsToItsColumns) {
    EXPECT_EQ(CommandTexts::report(exampleReport(), {.columns = 40}),
              "Restored 2 of 4 windows in 124 ms, 1 after a retry, 1 skipped, 1 failed.\n"
              "  failed    Game                  app r…\n"
              "  skipped   Mail                  not r…\n"
              "  retried   Terminal\n"
              "  restored  Editor                notes\n");
}

TEST(CommandTexts, AnEmptyReportSaysSo) {
    EXPECT_EQ(CommandTexts::report({}, {}), "The saved layout holds no windows.\n");
}

TEST(CommandTexts, AStatusTellsDeskLayoutAndDisplays) {
    StatusMessage status;
    status.phase = {.name = "saved", .windows = 1, .seconds = {}, .text = "1 window remembered"};
    status.configID = "c";
    status.configName = "Monitor + Laptop";
    status.activeLayoutName = "Reading";
    status.activePinned = true;
    status.savedWindows = 1;
    status.savedAt = dateFromIso8601("2025-03-01T08:15:00Z");
    status.layoutNames = {"Default", "Reading"};
    status.displays.resize(2);
    status.displays[0].name = "Laptop";
    status.displays[0].frame = {{0, 0}, {1920, 1200}};
    status.displays[1].name = "Monitor";
    status.displays[1].frame = {{1920, -240}, {2560, 1440}};
    status.supportDirectory = "/data/Vantrel";
    status.license.reason = "The trial ends in 3 days.";
    status.latestAvailable = "1.10";
    status.crashReports = 2;
    EXPECT_EQ(CommandTexts::status(status, {}, dateText),
              "state     1 window remembered\n"
              "desk      Monitor + Laptop\n"
              "layout    Reading · 1 window · saved 2025-03-01T08:15:00Z · pinned\n"
              "layouts   Default, Reading\n"
              "displays  Laptop 1920x1200 at 0,0\n"
              "          Monitor 2560x1440 at 1920,-240\n"
              "license   The trial ends in 3 days.\n"
              "files     /data/Vantrel\n"
              "crashes   2 reports not sent\n"
              "Update available · v1.10\n");
}

TEST(CommandTexts, DesksNameTheirOtherLayouts) {
    Layout shown;
    shown.layoutName = "Default";
    Layout other = shown;
    other.layoutName = "Reading";
    other.pinned = true;
    other.windows.resize(2);
    const DesksMessage message{
        {{"c", "Here", true, "Default", {shown, other}}, {"d", "There", false, "", {}}}};
    EXPECT_EQ(CommandTexts::desks(message,
                                  {.columns = 80, .rows = 30, .characters = DeskDrawing::Characters::ascii},
                                  dateText),
              "Here (this desk)\n"
              "Default, 0 windows, saved 1970-01-01T00:00:00Z\n"
              "also: Reading, 2 windows, saved 1970-01-01T00:00:00Z, pinned\n"
              "\n"
              "There\n"
              "no layout saved yet\n");
}

TEST(CommandTexts, ListsHaveAStarAtTheActiveOneAndKeepToTheirColumns) {
    DeskMessage desk;
    desk.activeLayoutName = "Work";
    desk.layouts.resize(2);
    desk.layouts[0].layoutName = "Default";
    desk.layouts[0].pinned = true;
    desk.layouts[1].layoutName = "Work";
    desk.layouts[1].windows.resize(1);
    EXPECT_EQ(CommandTexts::layouts(desk, {}, dateText),
              "  Default · 0 windows · saved 1970-01-01T00:00:00Z · pinned\n"
              "* Work · 1 window · saved 1970-01-01T00:00:00Z\n");
    Stash stash;
    stash.id = "0A1B2C3D-4E5F";
    stash.windowCount = 2;
    stash.deskName = "Monitor + Laptop";
    stash.appliedSceneName = "Focus";
    EXPECT_EQ(CommandTexts::stashes({{stash}, stash.id}, {.columns = 76}, dateText),
              "* 0A1B2C3D  2 windows · kept until 1970-01-08T00:00:00Z · Monitor + Laptop …\n");
    EXPECT_EQ(CommandTexts::stashes({}, {}, dateText), "");
}

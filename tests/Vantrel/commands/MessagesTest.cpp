// What goes over the session bus arrives as it was sent, nonsense is refused, and a terminal shows it in
// columns.
#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/ScenesMessage.h"
#include "Vantrel/commands/StashesMessage.h"
#include "Vantrel/commands/StatusMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/terminal/SceneTexts.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

using namespace vantrel;

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

} // namespace

TEST(ControlMessages, ArriveAsTheyWereSent) {
    expectToArrive(exampleStatus());
    expectToArrive(StatusMessage{});
    expectToArrive(exampleReport());
    expectToArrive(exampleDesks());
    expectToArrive(exampleStashes());
    expectToArrive(StashesMessage{});
    expectToArrive(exampleScenes());
    expectToArrive(ScenesMessage{});
}

TEST(ControlMessages, NonsenseIsRefused) {
    const auto good = nlohmann::json(exampleStatus());
    for (const auto* const key : {"phase", "enabled", "displays", "layoutNames", "configID"}) {
        auto bad = good;
        bad[key] = 5;
        EXPECT_ANY_THROW((void)bad.get<StatusMessage>()) << key;
        bad.erase(key);
        EXPECT_ANY_THROW((void)bad.get<StatusMessage>()) << key;
    }
    for (const auto* const text : {R"([])", R"({"elapsed": 1})", R"({"elapsed": 1, "items": {}})",
                                   R"({"elapsed": 1, "items": [{"appName": "", "bundleID": "", "title": "",
                                       "outcome": "lost", "reason": ""}]})"}) {
        EXPECT_ANY_THROW((void)nlohmann::json::parse(text).get<RestoreReport>()) << text;
    }
}

TEST(CommandTexts, AReportNamesFirstWhatDidNotGoBackAndKeepsToItsColumns) {
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

TEST(CommandTexts, AStatusTellsDeskLayoutAndDisplays) {
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

TEST(CommandTexts, DesksNameTheirOtherLayouts) {
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

TEST(CommandTexts, ListsHaveAStarAtTheActiveOneAndKeepToTheirColumns) {
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

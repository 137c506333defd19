// What goes over the session bus arrives as it was sent, and nonsense is refused.
#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/StashesMessage.h"
#include "Vantrel/commands/StatusMessage.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

using namespace vantrel;

namespace {

template <typename Message>
Message sent(const Message& message) {
    return nlohmann::json::parse(nlohmann::json(message).dump()).template get<Message>();
}

StatusMessage exampleStatus() {
    StatusMessage status;
    status.version = "1.2";
    status.phase = {.name = "restored", .windows = 4, .seconds = 0.25, .text = "4 windows restored"};
    status.enabled = true;
    status.configID = std::string(32, 'a');
    status.configName = "Äußerer Bildschirm";
    status.activeLayoutName = "Default";
    status.savedWindows = 7;
    status.savedAt = dateFromIso8601("2025-03-01T08:15:00Z");
    status.layoutNames = {"Default", "Reading"};
    status.displays.resize(2);
    status.displays[1].name = "Right";
    status.supportDirectory = "/home/user/.local/share/Vantrel";
    status.crashReports = 2;
    status.license = LicenseMessage::of({.kind = Entitlement::Kind::licensed,
                                         .reason = "Licensed.",
                                         .license = License{.id = "1",
                                                            .product = "vantrel",
                                                            .machine = "m",
                                                            .plan = "personal",
                                                            .issuedAt = *status.savedAt,
                                                            .expiresAt = status.savedAt,
                                                            .holder = "Ada"}});
    status.latestAvailable = "1.3";
    return status;
}

} // namespace

TEST(ControlMessages, AStatusArrivesAsItWasSent) {
    EXPECT_EQ(sent(exampleStatus()), exampleStatus());
    EXPECT_EQ(sent(StatusMessage{}), StatusMessage{});
}

TEST(ControlMessages, AReportArrivesAsItWasSent) {
    using Kind = RestoreReport::Kind;
    RestoreReport report;
    report.elapsed = 0.125;
    report.items = {{"Editor", "org.editor", "a", {Kind::restored, ""}},
                    {"Editor", "org.editor", "b", {Kind::retried, ""}},
                    {"Mail", "org.mail", "", {Kind::skipped, "not running"}},
                    {"Game", "org.game", "c", {Kind::failed, "app rejected the move"}}};
    EXPECT_EQ(sent(report), report);
    EXPECT_EQ(nlohmann::json(report).at("restored"), 2);
    EXPECT_EQ(nlohmann::json(report).at("failed"), 1);
}

TEST(ControlMessages, DesksArriveAsTheyWereSent) {
    Layout layout;
    layout.configID = "c";
    layout.layoutName = "Reading";
    layout.windows.resize(1);
    layout.windows[0].title = "t";
    const DesksMessage desks{{{"c", "Desk", true, "Reading", {Layout{}, layout}}}};
    EXPECT_EQ(sent(desks), desks);
    EXPECT_EQ(desks.desks[0].shownLayout(), &desks.desks[0].layouts[1]);
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

TEST(ControlMessages, StashesArriveAsTheyWereSent) {
    Stash stash;
    stash.id = "0A1B";
    stash.deskName = "Laptop";
    stash.appliedSceneName = "Focus";
    EXPECT_EQ(sent(StashesMessage{{stash}, "0A1B"}), (StashesMessage{{stash}, "0A1B"}));
    EXPECT_EQ(sent(StashesMessage{}), StashesMessage{});
}

// The desktop's actions as any program calls them over the session bus: what they say when they do something,
// and why when they do not.
#include "tests/live/VantrelDesk.h"

#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

constexpr const char* nothingRestored = "Nothing moved. This desk has no saved layout yet, or Vantrel is "
                                        "paused, missing Accessibility permission, "
                                        "or past its trial.";
constexpr const char* nothingApplied =
    "Nothing moved. Vantrel may be paused, missing Accessibility permission, or past its trial.";

class Actions : public UnderWindowManager {
protected:
    using Action = std::vector<std::string>;

    [[nodiscard]] std::string call(const Action& action) const {
        std::vector<std::string> command{"gdbus",
                                         "call",
                                         "--session",
                                         "--dest",
                                         "org.vantrel.Vantrel",
                                         "--object-path",
                                         "/org/vantrel/Vantrel",
                                         "--method",
                                         "org.vantrel.Vantrel.Actions." + action.at(0)};
        command.insert(command.end(), action.begin() + 1, action.end());
        return desk.run(command).output;
    }

    void expectDone(const Action& action, const std::string& message) const {
        EXPECT_EQ(call(action), "('" + message + "',)\n");
    }

    // Now, or soon: what the answer depends on may still be on its way to the program.
    void expectNothing(const Action& action, const std::string& message) const {
        const auto expected = "Error: GDBus.Error:org.vantrel.Error.NothingHappened: " + message + "\n";
        std::string answer;
        EXPECT_TRUE(waitUntil([&] { return (answer = call(action)) == expected; })) << answer;
    }

    // The identifier of the scene that is listed first.
    [[nodiscard]] std::string sceneID() const {
        const auto scenes = call({"Scenes"});
        const std::string mark = "\"id\":\"";
        const auto begin = scenes.find(mark) + mark.size();
        return scenes.substr(begin, scenes.find('"', begin) - begin);
    }

    // There before vantrel: one that it sees appear, it would place as newly launched.
    xcb_window_t window = desk.open({"galculator"}).client;
    ProgramRun vantrel = desk.startVantrel();
};

INSTANTIATE_TEST_SUITE_P(Under, Actions, windowManagers(), windowManagerName);

TEST_P(Actions, RestoreUndoAndStashSayWhatTheyDoOrWhyNot) {
    const auto comesTo = [&](Point corner) {
        return eventually([&] { return desk.frame(window).origin == corner; });
    };
    const auto tells = [&](const Action& command, const char* words) {
        return waitUntil([&] { return desk.control(command).output.find(words) != std::string::npos; });
    };
    expectNothing({"RestoreNow"}, nothingRestored);
    expectNothing({"UndoLastRestore"}, "There is nothing to undo.");
    desk.done({"save"});
    const Point home = desk.frame(window).origin;
    constexpr Point away{300, 100};
    expectDone({"StashOrBringBack"}, "1 window put aside.");
    ASSERT_TRUE(tells({"stash", "list"}, "*"));

    // Only a window that is moved leaves something to undo.
    desk.drag(window, away);
    expectDone({"RestoreNow"}, "1 window put back.");
    ASSERT_TRUE(comesTo(home));
    ASSERT_TRUE(tells({"history"}, "restore now"));
    expectDone({"UndoLastRestore"}, "Undid the last restore.");
    ASSERT_TRUE(comesTo(away));
    expectDone({"StashOrBringBack"}, "1 window brought back.");
    EXPECT_TRUE(comesTo(home));
    ASSERT_TRUE(tells({"stash", "list"}, "Nothing is stashed."));
    EXPECT_THAT(desk.done({"stash", "toggle"}), testing::StartsWith("Stashed 1 window of "));
    EXPECT_THAT(desk.done({"stash", "toggle"}), testing::StartsWith("Restored 1 of 1 window"));

    desk.done({"settings", "set", "enabled", "false"});
    expectNothing({"RestoreNow"}, nothingRestored);
}

TEST_P(Actions, ScenesAreSavedAndAppliedOrSaidWhyNot) {
    expectNothing({"SaveScene", " "}, "A scene needs a name.");
    expectNothing({"ApplyScene", "gone"}, "That scene no longer exists.");
    expectDone({"SaveScene", "Work"}, "Saved the desk as \"Work\".");
    expectDone({"ApplyScene", sceneID()}, "Applied \"Work\".");
    desk.done({"settings", "set", "enabled", "false"});
    expectNothing({"ApplyScene", sceneID()}, nothingApplied);
    desk.done({"settings", "set", "enabled", "true"});

    desk.done({"scenes", "pin", "Work"});
    expectNothing({"SaveScene", "Work"}, "That scene is pinned, so its layout never changes.");
    for (int number = 2; number <= 12; ++number) {
        desk.done({"scenes", "new", "Scene " + std::to_string(number)});
    }
    expectNothing({"SaveScene", "One more"}, "This desk already has the maximum number of scenes.");

    desk.monitors().unplug(1);
    expectNothing({"SaveScene", "Scene 3"}, "A scene on another desk already has that name.");
    desk.endWindowManager();
    expectNothing({"SaveScene", "Elsewhere"}, "Vantrel needs Accessibility permission to read the desk.");
}

TEST_P(Actions, ProgramStartsWithTheSessionWhileTheSettingSaysSo) {
    const auto entry = desk.home().configFolder() / "autostart" / "vantrel.desktop";
    desk.done({"settings", "set", "launchAtLogin", "true"});
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(entry); }));
    EXPECT_EQ(desk.run({"desktop-file-validate", entry.string()}).output, "");
    desk.home().write("config/vantrel/settings.conf", "# Somebody else wrote this.\n");
    EXPECT_TRUE(waitUntil([&] { return !std::filesystem::exists(entry); }));
}

} // namespace
} // namespace vantrel::live

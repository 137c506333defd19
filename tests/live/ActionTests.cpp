// The desktop's actions as any program calls them over the session bus: what they say when they do something,
// and why when they do not.
#include "tests/live/ProgramRun.h"

#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

class Actions : public testing::Test {
protected:
    std::string call(const std::vector<std::string>& methodAndArguments) {
        std::vector<std::string> command{"gdbus",
                                         "call",
                                         "--session",
                                         "--dest",
                                         "org.vantrel.Vantrel",
                                         "--object-path",
                                         "/org/vantrel/Vantrel",
                                         "--method",
                                         "org.vantrel.Vantrel.Actions." + methodAndArguments.at(0)};
        command.insert(command.end(), methodAndArguments.begin() + 1, methodAndArguments.end());
        return m_desk.run(command).output;
    }

    void expectDone(const std::vector<std::string>& action, const std::string& message) {
        EXPECT_EQ(call(action), "('" + message + "',)\n");
    }

    void expectNothing(const std::vector<std::string>& action, const std::string& message) {
        EXPECT_EQ(call(action), "Error: GDBus.Error:org.vantrel.Error.NothingHappened: " + message + "\n");
    }

    void control(const std::vector<std::string>& arguments) {
        const auto ended = vantrelctl(m_desk, arguments);
        ASSERT_EQ(ended.code, 0) << ended.output;
    }

    // The identifier of the scene that is listed first.
    std::string sceneID() {
        const auto scenes = call({"Scenes"});
        const std::string mark = "\"id\":\"";
        const auto begin = scenes.find(mark) + mark.size();
        return scenes.substr(begin, scenes.find('"', begin) - begin);
    }

    PrivateDesk m_desk{{MonitorPlace{0, 0, 1280, 800}, MonitorPlace{1280, 0, 1280, 800}}, "openbox"};
    // There before vantrel: one that it sees appear, it would place as newly launched.
    SeenWindow m_window = m_desk.open({"galculator"});
    ProgramRun m_vantrel = startVantrel(m_desk);
};

constexpr const char* nothingRestored = "Nothing moved. This desk has no saved layout yet, or Vantrel is "
                                        "paused, missing Accessibility permission, "
                                        "or past its trial.";
constexpr const char* nothingApplied =
    "Nothing moved. Vantrel may be paused, missing Accessibility permission, or past its trial.";

TEST_F(Actions, RestoreUndoAndStashSayWhatTheyDoOrWhyNot) {
    expectNothing({"RestoreNow"}, nothingRestored);
    expectNothing({"UndoLastRestore"}, "There is nothing to undo.");
    control({"save"});
    expectDone({"StashOrBringBack"}, "Putting the desk aside.");
    ASSERT_TRUE(waitUntil(
        [&] { return vantrelctl(m_desk, {"stash", "list"}).output.find('*') != std::string::npos; }));

    // Only a window that is moved leaves something to undo.
    const auto& window = m_window;
    const auto frame = [&] { return seenWindow(m_desk.connection(), window.client).value().frame; };
    const auto moveAway = [&] {
        m_desk.place(window.client, {{300, 100}, window.frame.size});
        ASSERT_TRUE(m_desk.connection().waitUntil([&] { return frame().minX() == 300; }));
    };
    moveAway();
    expectDone({"RestoreNow"}, "Windows are going back to their places.");
    ASSERT_TRUE(m_desk.connection().waitUntil([&] { return frame() == window.frame; }));
    ASSERT_TRUE(waitUntil(
        [&] { return vantrelctl(m_desk, {"history"}).output.find("restore now") != std::string::npos; }));
    expectDone({"UndoLastRestore"}, "Undoing the last restore.");
    ASSERT_TRUE(m_desk.connection().waitUntil([&] { return frame().minX() == 300; }));
    expectDone({"StashOrBringBack"}, "Bringing the desk back.");
    EXPECT_TRUE(m_desk.connection().waitUntil([&] { return frame() == window.frame; }));

    control({"settings", "set", "enabled", "false"});
    expectNothing({"RestoreNow"}, nothingRestored);
}

TEST_F(Actions, ScenesAreSavedAndAppliedOrSaidWhyNot) {
    expectNothing({"SaveScene", " "}, "A scene needs a name.");
    expectNothing({"ApplyScene", "gone"}, "That scene no longer exists.");
    expectDone({"SaveScene", "Work"}, "Saved the desk as \"Work\".");
    expectDone({"ApplyScene", sceneID()}, "Applying \"Work\".");
    control({"settings", "set", "enabled", "false"});
    expectNothing({"ApplyScene", sceneID()}, nothingApplied);
    control({"settings", "set", "enabled", "true"});

    control({"scenes", "pin", "Work"});
    expectNothing({"SaveScene", "Work"}, "That scene is pinned, so its layout never changes.");
    for (int number = 2; number <= 12; ++number) {
        control({"scenes", "new", "Scene " + std::to_string(number)});
    }
    expectNothing({"SaveScene", "One more"}, "This desk already has the maximum number of scenes.");

    m_desk.monitors().unplug(1);
    ASSERT_TRUE(
        waitUntil([&] { return call({"SaveScene", "Scene 3"}).find("another desk") != std::string::npos; }));
    expectNothing({"SaveScene", "Scene 3"}, "A scene on another desk already has that name.");
    m_desk.endWindowManager();
    EXPECT_TRUE(waitUntil([&] {
        return call({"SaveScene", "Elsewhere"}) == "Error: GDBus.Error:org.vantrel.Error.NothingHappened: "
                                                   "Vantrel needs Accessibility permission to "
                                                   "read the desk.\n";
    })) << call({"SaveScene", "Elsewhere"});
}

TEST_F(Actions, ProgramStartsWithTheSessionWhileTheSettingSaysSo) {
    const auto entry = m_desk.home().configFolder() / "autostart" / "vantrel.desktop";
    control({"settings", "set", "launchAtLogin", "true"});
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(entry); }));
    EXPECT_EQ(m_desk.run({"desktop-file-validate", entry.string()}).output, "");
    m_desk.home().write("config/vantrel/settings.conf", "# Somebody else wrote this.\n");
    EXPECT_TRUE(waitUntil([&] { return !std::filesystem::exists(entry); }));
}

TEST_F(Actions, TheStashIsToggledFromTheCommandLine) {
    EXPECT_THAT(vantrelctl(m_desk, {"stash", "toggle"}).output, testing::StartsWith("Put 1 window of "));
    EXPECT_THAT(vantrelctl(m_desk, {"stash", "toggle"}).output,
                testing::StartsWith("Restored 1 of 1 window"));
}

} // namespace
} // namespace vantrel::live

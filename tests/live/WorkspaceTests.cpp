// Whole applications on a real desk: started, hidden, shown again, and noticed.
#include "Vantrel/platform/qt/QtMainQueue.h"
#include "Vantrel/platform/x11/X11Workspace.h"
#include "tests/live/WindowDesk.h"

#include <QCoreApplication>
#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

class WorkspaceUnder : public WindowsUnder {
protected:
    bool eventually(const std::function<bool()>& condition) {
        return desk.connection().waitUntil([&] {
            QCoreApplication::processEvents();
            return condition();
        });
    }

    // Shown by a process that is neither the test's nor any other application's.
    xcb_window_t show(const std::string& wmClass, std::uint32_t pid) {
        return desk.probe.show({.title = wmClass, .wmClass = wmClass, .pid = pid});
    }

    bool isVisible(xcb_window_t window) {
        const auto seen = seenWindow(desk.connection(), window);
        return seen && seen->isViewable;
    }

    bool isActive(xcb_window_t window) {
        const auto active = desk.connection().values(desk.connection().root(), "_NET_ACTIVE_WINDOW");
        return !active.empty() && active.front() == window;
    }

    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    QtMainQueue queue;
    X11Workspace workspace{desk.context, queue};
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, WorkspaceUnder, windowManagers(), windowManagerName);

TEST_P(WorkspaceUnder, UnhidingShowsOnlyWhatWasHiddenAndTakesNoFocus) {
    const auto first = show("Editor", 70001);
    const auto minimised = show("Editor", 70001);
    const auto other = show("Other", 70002);
    constexpr std::uint32_t iconic = 3;
    desk.connection().tellWindowManager(minimised, "WM_CHANGE_STATE", {iconic});
    ASSERT_TRUE(eventually([&] { return !isVisible(minimised); }));
    // A window manager may say that a window is minimized after it is off the screen.
    ASSERT_TRUE(desk.awaitQuiet());

    EXPECT_TRUE(workspace.hide("editor"));
    ASSERT_TRUE(eventually([&] { return !isVisible(first); }));
    ASSERT_TRUE(desk.awaitQuiet());
    EXPECT_TRUE(isVisible(other));
    EXPECT_FALSE(workspace.hide("editor")) << "everything is hidden already";
    EXPECT_FALSE(workspace.hide("unknown"));

    desk.connection().tellWindowManager(other, "_NET_ACTIVE_WINDOW", {2, 0, 0});
    ASSERT_TRUE(eventually([&] { return isActive(other); }));
    EXPECT_TRUE(workspace.unhide("editor"));
    ASSERT_TRUE(eventually([&] { return isVisible(first); }));
    ASSERT_TRUE(desk.awaitQuiet());
    EXPECT_FALSE(isVisible(minimised)) << "the user minimised it";
    // xfwm4 focuses every window that it shows again.
    EXPECT_TRUE(isActive(other) || GetParam() == std::string("xfwm4"));
    EXPECT_FALSE(workspace.unhide("editor"));
}

TEST_P(WorkspaceUnder, AnApplicationIsNoticedWhenItsFirstWindowAppears) {
    std::vector<std::string> started;
    show("Running", 70001);
    // Until the window manager lists it.
    ASSERT_TRUE(desk.awaitQuiet());
    workspace.setLaunchHandler([&](const RunningApp& app) { started.push_back(*app.bundleID); });
    show("Running", 70001);
    const auto editor = show("Editor", 70002);
    ASSERT_TRUE(eventually([&] { return !started.empty(); }));
    show("Editor", 70002);
    desk.probe.destroy(editor);
    show("Mail", 70003);
    ASSERT_TRUE(eventually([&] { return started.size() > 1; }));

    // The window lists go and come back, the programs stay.
    desk.endWindowManager();
    desk.startWindowManager(GetParam());
    show("Last", 70004);
    ASSERT_TRUE(eventually([&] { return started.back() == "last"; }));
    EXPECT_THAT(started, testing::ElementsAre("editor", "mail", "last"));
}

TEST(Launching, AStartedProgramStandsOnItsOwnAndARestrictedVantrelUsesSystemd) {
    const VantrelDesk desk("");
    const std::string home = desk.home().path().string();
    const auto script = [&](const std::string& name, const std::string& text) {
        desk.home().write(name, "#!/bin/sh\n" + text);
        std::filesystem::permissions(home + "/" + name, std::filesystem::perms::owner_all);
    };
    // Writes down how it was started, once the program that started it has ended.
    script("recorder", fmt::format(R"sh(while [ ! -e {0}/go ]; do sleep 0.01; done
{{
    for argument in "$@"; do echo "argument $argument"; done
    echo "folder $(pwd)"
    [ "$(cut -d' ' -f6 /proc/$$/stat)" = $$ ] && echo "own session"
    [ -e /proc/$$/fd/9 ] && echo "leaked descriptor"
    echo end
}} >> {0}/record
)sh",
                                   home));
    // Stands in for the user's systemd.
    desk.home().write("runtime/systemd/private", "");
    const std::string noteSystemd =
        "until [ \"$1\" = -- ]; do shift; done; shift; echo systemd >> " + home + "/record; ";
    struct Row {
        std::string keys;
        // Empty when the recorder does not start.
        std::string record;
        // What systemd-run does for a vantrel that runs with restrictions.
        std::optional<std::string> restricted = {};
    };
    const std::string exec = "Exec=" + home + "/recorder";
    const std::string alone = "folder " + home + "\nown session\nend\n";
    for (const auto& [keys, expected, restricted] : {
             Row{exec + R"( "two words" %c %U 100%%)",
                 "argument two words\nargument Recorder\nargument 100%\n" + alone},
             Row{"DBusActivatable=true\nPath=/usr\n" + exec, "folder /usr\nown session\nend\n"},
             Row{"TryExec=/nonexistent\n" + exec, ""},
             Row{"Hidden=true\n" + exec, ""},
             Row{exec, "systemd\n" + alone, noteSystemd + "exec \"$@\""},
             Row{exec, "systemd\n" + alone, noteSystemd + "exit 1"},
         }) {
        SCOPED_TRACE(keys + restricted.value_or(""));
        desk.home().write("data/applications/org.example.Recorder.desktop",
                          "[Desktop Entry]\nType=Application\nName=Recorder\n" + keys + "\n");
        script("bin/systemd-run", restricted.value_or(noteSystemd + "exec \"$@\"") + "\n");
        std::vector<std::string> command{LAUNCH_PROBE_PROGRAM, "org.example.Recorder"};
        if (restricted) {
            command.insert(command.begin(), {"setpriv", "--no-new-privs"});
        }
        const auto ended = desk.run(command, {"PATH=" + home + "/bin:/usr/local/bin:/usr/bin:/bin"});
        EXPECT_EQ(ended.code, expected.empty() ? 1 : 0);
        desk.home().write("go", "");
        const auto record = [&] {
            std::ifstream stream(home + "/record");
            return std::string(std::istreambuf_iterator<char>(stream), {});
        };
        EXPECT_TRUE(expected.empty() || waitUntil([&] { return record().ends_with("end\n"); })) << record();
        EXPECT_EQ(record(), expected);
        std::filesystem::remove(home + "/record");
        std::filesystem::remove(home + "/go");
    }
}

} // namespace
} // namespace vantrel::live

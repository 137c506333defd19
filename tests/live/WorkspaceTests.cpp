// Applications as wholes on a real desk: started, hidden, shown again, and noticed.
#include "Vantrel/platform/x11/X11Workspace.h"
#include "tests/live/ProgramRun.h"
#include "tests/live/WindowDesk.h"
#include "tests/live/WindowManagers.h"

#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>
#include <mutex>
#include <sstream>
#include <utility>

namespace vantrel::live {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The test's own main thread: what was posted runs when the test lets it.
class PumpedQueue final : public MainQueue {
public:
    void post(std::function<void()> work) override {
        const std::lock_guard lock(m_mutex);
        m_work.push_back(std::move(work));
    }
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double /*seconds*/,
                                                       std::function<void()> /*work*/) override {
        return nullptr;
    }
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double /*seconds*/,
                                                       std::function<void()> /*work*/) override {
        return nullptr;
    }

    void pump() {
        std::vector<std::function<void()>> due;
        {
            const std::lock_guard lock(m_mutex);
            due.swap(m_work);
        }
        for (const auto& work : due) {
            work();
        }
    }

private:
    std::mutex m_mutex;
    std::vector<std::function<void()>> m_work;
};

class WorkspaceUnder : public testing::TestWithParam<const char*> {
protected:
    WindowDesk m_desk{GetParam()};
    PumpedQueue m_queue;
    X11Workspace m_workspace{std::make_shared<X11Desk>(m_desk.connection), m_queue};
    std::vector<std::string> m_started;

    bool eventually(const std::function<bool()>& condition) {
        return m_desk.desk.connection().waitUntil([&] {
            m_queue.pump();
            return condition();
        });
    }

    // Shown by a process that is neither the test's nor any other application's.
    xcb_window_t show(const std::string& wmClass, std::uint32_t pid) {
        return m_desk.probe.show({.title = wmClass, .wmClass = wmClass, .pid = pid});
    }

    bool isVisible(xcb_window_t window) {
        const auto seen = seenWindow(m_desk.desk.connection(), window);
        return seen && seen->isViewable;
    }

    std::uint32_t activeWindow() {
        const auto active =
            m_desk.desk.connection().values(m_desk.desk.connection().root(), "_NET_ACTIVE_WINDOW");
        return active.empty() ? 0 : active.front();
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, WorkspaceUnder, testedWindowManagers(), windowManagerName);

TEST_P(WorkspaceUnder, AHiddenApplicationComesBackWithoutTheFocusAndOnlyWithWhatWasHidden) {
    const auto first = show("Editor", 70001);
    const auto minimised = show("Editor", 70001);
    const auto other = show("Other", 70002);
    m_desk.probe.addStates(minimised, {"_NET_WM_STATE_HIDDEN"});
    m_desk.desk.connection().tellWindowManager(minimised, "WM_CHANGE_STATE", {3});
    ASSERT_TRUE(eventually([&] { return !isVisible(minimised); }));

    EXPECT_TRUE(m_workspace.hide("editor"));
    ASSERT_TRUE(eventually([&] { return !isVisible(first); }));
    EXPECT_TRUE(isVisible(other));
    EXPECT_FALSE(m_workspace.hide("editor")) << "everything is hidden already";
    EXPECT_FALSE(m_workspace.hide("unknown"));

    m_desk.desk.connection().tellWindowManager(other, "_NET_ACTIVE_WINDOW", {2, 0, 0});
    ASSERT_TRUE(eventually([&] { return activeWindow() == other; }));
    EXPECT_TRUE(m_workspace.unhide("editor"));
    ASSERT_TRUE(eventually([&] { return isVisible(first); }));
    EXPECT_FALSE(isVisible(minimised)) << "the user had put it away";
    if (std::string(GetParam()) == "openbox") {
        // xfwm4 gives a window that it shows again the focus, whoever asks.
        EXPECT_EQ(activeWindow(), other);
    }
    EXPECT_FALSE(m_workspace.unhide("editor"));
}

TEST_P(WorkspaceUnder, AnApplicationIsNoticedWhenItsFirstWindowAppears) {
    show("Running", 70001);
    m_workspace.setLaunchHandler([&](const RunningApp& app) { m_started.push_back(*app.bundleID); });
    show("Running", 70001);
    const auto editor = show("Editor", 70002);
    ASSERT_TRUE(eventually([&] { return !m_started.empty(); }));
    show("Editor", 70002);
    m_desk.probe.destroy(editor);
    show("Mail", 70003);
    ASSERT_TRUE(eventually([&] { return m_started.size() > 1; }));
    EXPECT_THAT(m_started, ElementsAre("editor", "mail"));

    // The lists go and come back, the programs stay.
    m_desk.desk.endWindowManager();
    m_desk.desk.startWindowManager(GetParam());
    show("Last", 70004);
    ASSERT_TRUE(eventually([&] { return m_started.back() == "last"; }));
    EXPECT_THAT(m_started, ElementsAre("editor", "mail", "last"));
}

// Starts "org.example.Recorder" in a program of its own, which ends at once, and returns what the recorder
// saw.
std::string recorded(PrivateDesk& desk, const std::string& keys) {
    const std::string home = desk.home().path().string();
    desk.home().write("recorder", fmt::format(R"sh(#!/bin/sh
while [ ! -e {0}/go ]; do sleep 0.01; done
{{
    for argument in "$@"; do echo "argument $argument"; done
    echo "folder $(pwd)"
    [ "$(cut -d' ' -f6 /proc/$$/stat)" = $$ ] && echo "own session"
    [ -e /proc/$$/fd/9 ] && echo "leaked descriptor"
    echo end
}} > {0}/record
)sh",
                                              home));
    std::filesystem::permissions(desk.home().path() / "recorder", std::filesystem::perms::owner_all);
    desk.home().write("data/applications/org.example.Recorder.desktop",
                      fmt::format("[Desktop Entry]\nType=Application\nName=Recorder\n{}\n",
                                  fmt::format(fmt::runtime(keys), home)));
    std::filesystem::remove(desk.home().path() / "record");
    const auto ended = ProgramRun(desk, {LAUNCH_PROBE_PROGRAM, "org.example.Recorder"}).ended();
    if (ended.code != 0) {
        return fmt::format("not started: {}", ended.code.value_or(-1));
    }
    desk.home().write("go", "");
    const auto record = [&] {
        std::ifstream stream(desk.home().path() / "record");
        return std::string(std::istreambuf_iterator<char>(stream), {});
    };
    EXPECT_TRUE(waitUntil([&] { return record().ends_with("end\n"); })) << record();
    std::filesystem::remove(desk.home().path() / "go");
    return record();
}

TEST(Launching, AStartedProgramStandsOnItsOwn) {
    PrivateDesk desk({WindowDesk::left}, "");
    const std::string home = desk.home().path().string();
    EXPECT_EQ(recorded(desk, R"(Exec={}/recorder "two words" %c %U 100%%)"),
              "argument two words\nargument Recorder\nargument 100%\nfolder " + home +
                  "\nown session\nend\n");
    EXPECT_THAT(recorded(desk, "DBusActivatable=true\nPath=/usr\nExec={}/recorder"),
                HasSubstr("folder /usr\n"));
    EXPECT_EQ(recorded(desk, "TryExec=/nonexistent\nExec={}/recorder"), "not started: 1");
    EXPECT_EQ(recorded(desk, "Hidden=true\nExec={}/recorder"), "not started: 1");
}

} // namespace
} // namespace vantrel::live

// A scene as a user applies it: windows move, what is missing starts and takes its place, others are hidden.
#include "tests/live/ProgramRun.h"
#include "tests/live/WindowManagers.h"

#include <algorithm>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

using ::testing::HasSubstr;

class SceneUnder : public testing::TestWithParam<const char*> {
protected:
    PrivateDesk m_desk{{{0, 0, 1280, 1024}, {1280, 0, 1600, 900}}, GetParam()};

    std::optional<SeenWindow> windowTitled(const std::string& title) {
        const auto all = seenWindows(m_desk.connection());
        const auto found = std::ranges::find(all, title, &SeenWindow::title);
        return found == all.end() ? std::nullopt : std::optional(*found);
    }

    bool isVisible(const std::string& title) {
        const auto window = windowTitled(title);
        return window && window->isViewable;
    }

    // The frame's corner is there; what a window manager makes of the size is its own affair.
    bool standsAt(const std::string& title, Point corner) {
        const auto window = windowTitled(title);
        return window && window->isViewable && window->frame.origin == corner;
    }

    void place(const std::string& title, Point corner) {
        const auto window = windowTitled(title).value();
        m_desk.place(window.client, {corner, window.frame.size});
        ASSERT_TRUE(eventually([&] { return standsAt(title, corner); })) << title;
    }

    bool eventually(const std::function<bool()>& condition) {
        return m_desk.connection().waitUntil(condition);
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, SceneUnder, testedWindowManagers(), windowManagerName);

TEST_P(SceneUnder, AMissingProgramIsStartedAndTakesItsSlotWhileOthersHideUntilUndone) {
    constexpr Point notesCorner{60, 200};
    constexpr Point calculatorCorner{1700, 250};
    // The system's file of this name, with nothing but what counts here.
    m_desk.home().write("data/applications/galculator.desktop",
                        "[Desktop Entry]\nType=Application\nName=Galculator\nExec=galculator\n");
    m_desk.home().write("data/applications/notes.desktop",
                        "[Desktop Entry]\nType=Application\nName=Notes\nStartupWMClass=notes\n"
                        "Exec=xterm -class notes -T notes\n");
    m_desk.home().write("config/vantrel/settings.conf", "hideOthersOnSceneSwitch = true\n");
    m_desk.open({"xterm", "-class", "notes", "-T", "notes"});
    auto& calculator = m_desk.start({"galculator"});
    ASSERT_TRUE(eventually([&] { return isVisible("galculator"); }));
    place("notes", notesCorner);
    place("galculator", calculatorCorner);
    const auto run = startVantrel(m_desk);
    const auto saved = vantrelctl(m_desk, {"save-scene", "Work"});
    ASSERT_EQ(saved.code, 0) << saved.output;
    EXPECT_EQ(saved.output, "Saved 2 windows as the scene \"Work\".\n");

    calculator.end();
    ASSERT_TRUE(eventually([&] { return !windowTitled("galculator"); }));
    place("notes", {500, 500});
    m_desk.open({"xterm", "-T", "chat"});

    const auto applied = vantrelctl(m_desk, {"apply", "work"});
    EXPECT_EQ(applied.code, 0) << applied.output;
    EXPECT_TRUE(standsAt("notes", notesCorner));
    const auto log = [&] { return vantrelctl(m_desk, {"log", "-n", "40"}).output; };
    ASSERT_TRUE(waitUntil([&] {
        return log().find("scene settlement: opened 1, placed 1 for Work") != std::string::npos;
    })) << log();
    EXPECT_TRUE(standsAt("galculator", calculatorCorner)) << log();
    EXPECT_TRUE(eventually([&] { return !isVisible("chat"); }));
    EXPECT_THAT(log(), HasSubstr("scene switch hid 1 app(s) the scene had hidden"));

    const auto undone = vantrelctl(m_desk, {"undo"});
    EXPECT_EQ(undone.code, 0) << undone.output << log();
    EXPECT_TRUE(eventually([&] { return isVisible("chat") && standsAt("notes", {500, 500}); })) << log();
}

} // namespace
} // namespace vantrel::live

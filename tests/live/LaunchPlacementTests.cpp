// A program that is started on a real desk opens where it was last remembered.
#include "tests/live/ProgramRun.h"
#include "tests/live/WindowManagers.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

class LaunchPlacementUnder : public testing::TestWithParam<const char*> {
protected:
    PrivateDesk m_desk{{{0, 0, 1280, 1024}, {1280, 0, 1600, 900}}, GetParam()};

    std::optional<SeenWindow> notes() {
        const auto windows = seenWindows(m_desk.connection());
        const auto found = std::ranges::find_if(
            windows, [](const SeenWindow& window) { return window.isViewable && window.title == "Notes"; });
        return found == windows.end() ? std::nullopt : std::optional(*found);
    }

    // As from a menu: by its desktop file.
    SeenWindow startNotes() {
        EXPECT_EQ(ProgramRun(m_desk, {LAUNCH_PROBE_PROGRAM, "org.example.Notes"}).ended().code, 0);
        EXPECT_TRUE(m_desk.connection().waitUntil([&] { return notes().has_value(); }));
        return notes().value();
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, LaunchPlacementUnder, testedWindowManagers(), windowManagerName);

TEST_P(LaunchPlacementUnder, AProgramOpensWhereItWasLastRememberedAndIsThenLeftAlone) {
    m_desk.home().write("data/applications/org.example.Notes.desktop",
                        "[Desktop Entry]\nType=Application\nName=Notes\nStartupWMClass=Notes\n"
                        "Exec=xterm -class Notes -T Notes -fa Monospace -fs 10\n");
    const auto run = startVantrel(m_desk);
    const auto first = startNotes();
    m_desk.place(first.client, {{1500, 300}, {700, 400}});
    ASSERT_TRUE(m_desk.connection().waitUntil([&] { return notes()->frame.minX() == 1500; }));
    ASSERT_EQ(vantrelctl(m_desk, {"save"}).code, 0);
    const Rect home = notes()->frame;
    xcb_kill_client(m_desk.connection().xcb(), first.client);
    ASSERT_TRUE(m_desk.connection().waitUntil([&] { return !notes(); }));

    startNotes();
    EXPECT_TRUE(m_desk.connection().waitUntil([&] { return notes()->frame == home; }));
    EXPECT_TRUE(waitUntil([&] {
        return vantrelctl(m_desk, {"log"}).output.find("launch placement: moved 1 window(s) of Notes") !=
               std::string::npos;
    }));
}

} // namespace
} // namespace vantrel::live

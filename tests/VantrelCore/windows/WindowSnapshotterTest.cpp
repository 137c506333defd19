#include "VantrelCore/windows/WindowSnapshotter.h"

#include "VantrelCore/displays/DisplayTopology.h"
#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <map>

namespace vantrel {
namespace {

using namespace WindowSnapshotter;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

constexpr Rect frame{{100, 100}, {400, 300}};
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

DisplayInfo display(const std::string& uuid, const Rect& bounds) {
    return {.uuid = uuid,
            .name = uuid,
            .frame = bounds,
            .isBuiltin = false,
            .edidUUID = std::nullopt,
            .visibleFrame = std::nullopt};
}

const std::vector<DisplayInfo> twoDisplays{display("left", {{0, 0}, {1000, 800}}),
                                           display("right", {{1000, 0}, {1000, 800}})};

TEST(WindowSnapshotter, OtherLayersGiveNoDepthButCount) {
    const std::vector<WindowListEntry> list{
        {25, 7, frame},           {0, 7, frame}, {std::nullopt, 7, frame},
        {0, std::nullopt, frame}, {0, 7, {}},    {0, 8, Rect{{1, 2}, {3, 4}}},
    };
    EXPECT_THAT(zOrderEntries(list), ElementsAre(ZEntry{7, frame, 1}, ZEntry{8, {{1, 2}, {3, 4}}, 5}));
}

TEST(WindowSnapshotter, AWindowsDepthIsThatOfTheFirstEntryOfItsProcessWithItsFrame) {
    const std::vector<ZEntry> entries{
        {8, frame, 0}, {7, {{100, 100}, {400, 302.01}}, 2}, {7, {{102, 98}, {402, 298}}, 4}, {7, frame, 5}};
    EXPECT_EQ(captureDecision(7, frame, entries), 4);
    EXPECT_EQ(captureDecision(8, frame, entries), 0);
    EXPECT_EQ(captureDecision(9, frame, entries), std::nullopt);
    EXPECT_EQ(captureDecision(7, frame, {}), std::nullopt);
}

TEST(WindowSnapshotter, ALookalikeVouchesForBeingOnScreenAtUnknownDepth) {
    const Rect wide{{0, 0}, {1000, 100}};

    const struct {
        const char* what = "";
        Rect window;
        Rect entry;
        bool isCaptured = false;
    } cases[] = {
        {"overlaps by 30 %", wide, {{700, 0}, {1000, 100}}, true},
        {"overlaps by less", wide, {{701, 0}, {1000, 100}}, false},
        {"centre 99.9 away", {{0, 0}, {10, 10}}, {{99.9, 0}, {10, 10}}, true},
        {"centre 100 away", {{0, 0}, {10, 10}}, {{100, 0}, {10, 10}}, false},
        {"empty window", {{0, 0}, {0, 10}}, {{5000, 0}, {10, 10}}, true},
        {"empty entry", {{0, 0}, {10, 10}}, {{5000, 0}, {0, 0}}, false},
        {"place unknown", {{nan, 0}, {10, 10}}, {{0, 0}, {10, 10}}, false},
        {"entry's place unknown", {{0, 0}, {10, 10}}, {{0, nan}, {10, 10}}, false},
        {"entry's size unknown", {{0, 0}, {10, 10}}, {{0, 0}, {nan, 10}}, false},
    };

    for (const auto& [what, window, entry, isCaptured] : cases) {
        EXPECT_EQ(captureDecision(7, window, {{7, entry, 3}}),
                  isCaptured ? std::optional(unknownOrder) : std::nullopt)
            << what;
    }
    // A later exact entry wins over an earlier lookalike.
    EXPECT_EQ(captureDecision(7, wide, {{7, {{10, 0}, {1000, 100}}, 3}, {7, wide, 9}}), 9);
}

TEST(WindowSnapshotter, AWindowBelongsToTheDisplayOfItsCentreElseOfItsLargestPart) {
    EXPECT_EQ(displayUUID({{700, 100}, {598, 100}}, twoDisplays), "left");
    EXPECT_EQ(displayUUID({{700, 100}, {600, 100}}, twoDisplays), "right");
    // Centres above both displays.
    EXPECT_EQ(displayUUID({{900, -200}, {300, 250}}, twoDisplays), "right");
    EXPECT_EQ(displayUUID({{900, -200}, {200, 250}}, twoDisplays), "left");
    EXPECT_EQ(displayUUID({{9000, 9000}, {10, 10}}, twoDisplays), "left");
    EXPECT_EQ(displayUUID({{nan, 0}, {10, 10}}, twoDisplays), "left");
    EXPECT_EQ(displayUUID(frame, {}), "");
}

TEST(WindowSnapshotter, OnlyOrdinaryWindowsThatCanBeSeenAreCaptured) {
    const WindowAttributes ordinary{"", standardWindowSubrole, false, false, frame.origin, frame.size};
    EXPECT_EQ(ordinaryFrame(ordinary), frame);

    const struct {
        const char* what;
        std::function<void(WindowAttributes&)> change;
        bool isOrdinary;
    } cases[] = {
        {"dialog", [](auto& a) { a.subrole = "AXDialog"; }, false},
        {"no subrole", [](auto& a) { a.subrole.reset(); }, false},
        {"minimised", [](auto& a) { a.isMinimized = true; }, false},
        {"full screen", [](auto& a) { a.isFullscreen = true; }, false},
        {"unreadable flags", [](auto& a) { a.isMinimized = a.isFullscreen = std::nullopt; }, true},
        {"unreadable size", [](auto& a) { a.size.reset(); }, false},
        {"one point wide", [](auto& a) { a.size->width = 1.0; }, false},
        {"a little wider", [](auto& a) { a.size->width = 1.5; }, true},
        {"one point high", [](auto& a) { a.size->height = 1.0; }, false},
        {"width unknown", [](auto& a) { a.size->width = nan; }, false},
    };

    for (const auto& [what, change, isOrdinary] : cases) {
        WindowAttributes attributes = ordinary;
        change(attributes);
        EXPECT_EQ(ordinaryFrame(attributes).has_value(), isOrdinary) << what;
    }
}

class Desk : public Accessibility {
public:
    std::vector<WindowListEntry> onScreen;
    std::vector<RunningApp> apps;
    std::map<std::int32_t, std::vector<WindowReading>> windows;
    std::vector<std::int32_t> asked;

    void addApp(std::int32_t pid, const std::string& bundleID, std::optional<std::string> name) {
        apps.push_back({pid, ActivationPolicy::regular, bundleID, std::move(name)});
    }

    void addWindow(std::int32_t pid, std::optional<std::string> title, const Rect& bounds) {
        windows[pid].push_back(
            {std::make_shared<ScriptedWindow>(m_journal),
             {std::move(title), standardWindowSubrole, false, false, bounds.origin, bounds.size}});
    }

    bool isTrusted() override { return true; }

    bool prompt() override { return true; }

    bool awaitQuiet() override { return true; }

    std::unique_ptr<DeskReading> beginReading() override { return std::make_unique<Reading>(*this); }

private:
    struct Reading : DeskReading {
        explicit Reading(Desk& desk) : m_desk(desk) {}

        std::vector<WindowListEntry> onScreenWindows() override { return m_desk.onScreen; }

        std::vector<RunningApp> runningApps() override { return m_desk.apps; }

        std::vector<WindowReading> windows(const RunningApp& app) override {
            m_desk.asked.push_back(app.pid);
            return m_desk.windows[app.pid];
        }

        Desk& m_desk;
    };

    Journal m_journal;
};

// Two windows of Notes with one frame, one of Mail in front of them, one of Mail at an unknown depth, a
// terminal on another desktop.
class WindowSnapshotterDesk : public testing::Test {
protected:
    WindowSnapshotterDesk() {
        desk.addApp(1, "org.notes", "Notes");
        desk.addApp(2, "org.mail", std::nullopt);
        desk.addApp(3, "org.terminal", "Terminal");
        desk.addWindow(1, "first", frame);
        desk.addWindow(1, "second", frame);
        desk.addWindow(2, "unknown depth", {{110, 120}, {400, 300}});
        desk.addWindow(2, std::nullopt, {{1200, 0}, {500, 500}});
        desk.addWindow(3, "elsewhere", frame);
        desk.onScreen = {{25, 1, frame},
                         {0, 2, Rect{{1200, 0}, {500, 500}}},
                         {0, 1, frame},
                         {0, 2, Rect{{100, 100}, {380, 290}}},
                         {0, 1, frame}};
    }

    std::vector<std::string> capturedTitles(std::optional<std::string_view> excluding,
                                            const std::set<std::string>& ignored) {
        std::vector<std::string> titles;
        for (const auto& window : currentWindows(desk, twoDisplays, excluding, ignored)) {
            titles.push_back(window.record.title);
        }
        return titles;
    }

    Desk desk;
};

TEST_F(WindowSnapshotterDesk, WindowsComeFrontToBackNumberedFromZero) {
    const auto windows = currentWindows(desk, twoDisplays, std::nullopt, {});
    ASSERT_EQ(windows.size(), 4U);
    EXPECT_EQ(windows[0].record,
              (WindowRecord{"org.mail", "org.mail", "", {{1200, 0}, {500, 500}}, "right", 0, std::nullopt}));
    EXPECT_EQ(windows[1].record,
              (WindowRecord{"org.notes", "Notes", "first", frame, "left", 1, std::nullopt}));
    EXPECT_EQ(windows[2].record.title, "second");
    EXPECT_EQ(windows[2].record.zOrder, 2);
    EXPECT_EQ(windows[3].record.title, "unknown depth");
    EXPECT_EQ(windows[3].record.zOrder, 3);
    EXPECT_EQ(windows[1].handle.element(), desk.windows[1][0].element);
}

TEST_F(WindowSnapshotterDesk, ApplicationsThatCannotContributeAreNotAskedForWindows) {
    EXPECT_THAT(capturedTitles("org.mail", {}), ElementsAre("first", "second"));
    EXPECT_THAT(capturedTitles(std::nullopt, {"org.notes"}), ElementsAre("", "unknown depth"));
    EXPECT_THAT(desk.asked, ElementsAre(1, 2)) << "the terminal has nothing on screen";
}

TEST_F(WindowSnapshotterDesk, WithoutAWindowListNothingIsOnScreen) {
    desk.onScreen.clear();
    EXPECT_THAT(capturedTitles(std::nullopt, {}), IsEmpty());
}

TEST_F(WindowSnapshotterDesk, TextsOfOtherProgramsAreMadeValid) {
    desk.windows[1].resize(1);
    desk.windows[1][0].attributes.title = "caf\xe9";
    desk.apps[0].localizedName = "N\xffotes";
    const auto windows = currentWindows(desk, twoDisplays, "org.mail", {});
    ASSERT_EQ(windows.size(), 1U);
    EXPECT_EQ(windows[0].record.title, "caf\uFFFD");
    EXPECT_EQ(windows[0].record.appName, "N\uFFFDotes");
}

TEST_F(WindowSnapshotterDesk, ASnapshotIsALayoutOfTheWholeDesk) {
    const Date now = *dateFromIso8601("2026-03-01T09:30:00Z");
    const Layout layout = snapshot(desk, twoDisplays, now);
    EXPECT_EQ(layout.configID, DisplayTopology::configID(twoDisplays));
    EXPECT_EQ(layout.name, DisplayTopology::configName(twoDisplays));
    EXPECT_EQ(layout.layoutName, "Default");
    EXPECT_EQ(layout.displays, twoDisplays);
    EXPECT_EQ(layout.savedAt, now);
    EXPECT_EQ(layout.pinned, std::nullopt);
    ASSERT_EQ(layout.windows.size(), 4U);
    EXPECT_EQ(layout.windows[1].title, "first");
}

} // namespace
} // namespace vantrel

#include "VantrelCore/windows/WindowSnapshotter.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include "tests/VantrelCore/DeskRecords.h"
#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace vantrel {
namespace {

using namespace WindowSnapshotter;
using testing::ElementsAre;

constexpr Rect frame{{100, 100}, {400, 300}};
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

const std::vector<DisplayInfo> twoDisplays{displayOf("left", {{0, 0}, {1000, 800}}),
                                           displayOf("right", {{1000, 0}, {1000, 800}})};

TEST(WindowSnapshotter, OtherLayersTakeAPlaceInTheStackButHaveNoEntry) {
    const std::vector<WindowListEntry> list{
        {25, 7, frame},           {0, 7, frame}, {std::nullopt, 7, frame},
        {0, std::nullopt, frame}, {0, 7, {}},    {0, 8, Rect{{1, 2}, {3, 4}}},
    };
    EXPECT_THAT(zOrderEntries(list), ElementsAre(ZEntry{7, frame, 1}, ZEntry{8, {{1, 2}, {3, 4}}, 5}));
}

TEST(WindowSnapshotter, TakesTheDepthOfTheMatchingEntryOrAcceptsASimilarOne) {
    const Rect wide{{0, 0}, {1000, 100}};
    const Rect small{{0, 0}, {10, 10}};
    const auto unknown = std::optional(unknownOrder);
    const std::tuple<const char*, Rect, std::vector<ZEntry>, std::optional<std::int64_t>> cases[] = {
        {"another process", frame, {{8, frame, 0}}, std::nullopt},
        {"the first within two points",
         frame,
         {{7, {{100, 100}, {400, 302.01}}, 2}, {7, {{102, 98}, {402, 298}}, 4}, {7, frame, 5}},
         4},
        {"overlaps by 30 %", wide, {{7, {{700, 0}, {1000, 100}}, 3}}, unknown},
        {"overlaps by less", wide, {{7, {{701, 0}, {1000, 100}}, 3}}, std::nullopt},
        {"centre 99.9 away", small, {{7, {{99.9, 0}, {10, 10}}, 3}}, unknown},
        {"centre 100 away", small, {{7, {{100, 0}, {10, 10}}, 3}}, std::nullopt},
        {"empty window", {{0, 0}, {0, 10}}, {{7, {{5000, 0}, {10, 10}}, 3}}, unknown},
        {"empty entry", small, {{7, {{5000, 0}, {0, 0}}, 3}}, std::nullopt},
        {"place unknown", {{nan, 0}, {10, 10}}, {{7, small, 3}}, std::nullopt},
        {"entry's size unknown", small, {{7, {{0, 0}, {nan, 10}}, 3}}, std::nullopt},
    };
    for (const auto& [what, window, entries, depth] : cases) {
        EXPECT_EQ(captureDecision(7, window, entries), depth) << what;
    }
}

TEST(WindowSnapshotter, AssignsAWindowToTheDisplayOfItsCentreThenOfItsLargestPart) {
    const std::tuple<const char*, Rect, std::string> cases[] = {
        {"centre left of the edge", {{700, 100}, {598, 100}}, "left"},
        {"centre on the edge", {{700, 100}, {600, 100}}, "right"},
        {"centre above, more of it right", {{900, -200}, {300, 250}}, "right"},
        {"centre above, as much of it left", {{900, -200}, {200, 250}}, "left"},
        {"nowhere", {{9000, 9000}, {10, 10}}, "left"},
        {"place unknown", {{nan, 0}, {10, 10}}, "left"},
    };
    for (const auto& [what, window, display] : cases) {
        EXPECT_EQ(VisibleWindows::displayUUID(window, twoDisplays), display) << what;
    }
    EXPECT_EQ(VisibleWindows::displayUUID(frame, {}), "");
}

TEST(WindowSnapshotter, CapturesOnlyVisibleOrdinaryWindows) {
    const std::tuple<const char*, WindowAttributes, bool> cases[] = {
        {"unreadable flags", {"", "AXStandardWindow", {}, {}, frame.origin, frame.size}, true},
        {"dialog", {"", "AXDialog", false, false, frame.origin, frame.size}, false},
        {"no subrole", {"", {}, false, false, frame.origin, frame.size}, false},
        {"minimised", {"", standardWindowSubrole, true, false, frame.origin, frame.size}, false},
        {"full screen", {"", standardWindowSubrole, false, true, frame.origin, frame.size}, false},
        {"unreadable size", {"", standardWindowSubrole, false, false, frame.origin, {}}, false},
        {"one point wide", {"", standardWindowSubrole, false, false, frame.origin, Size{1, 9}}, false},
        {"one point high", {"", standardWindowSubrole, false, false, frame.origin, Size{9, 1}}, false},
        {"a little more", {"", standardWindowSubrole, false, false, frame.origin, Size{1.5, 1.5}}, true},
        {"width unknown", {"", standardWindowSubrole, false, false, frame.origin, Size{nan, 9}}, false},
    };
    for (const auto& [what, attributes, isOrdinary] : cases) {
        const DeskWindow window = deskWindow({1, ActivationPolicy::regular, "app", "App"}, attributes);
        EXPECT_EQ(VisibleWindows::ordinaryFrame(window), isOrdinary ? attributes.frame() : std::nullopt)
            << what;
    }
}

const RunningApp notes{1, ActivationPolicy::regular, "org.notes", "Notes"};
const RunningApp mail{2, ActivationPolicy::regular, "org.mail", std::nullopt};

TEST(WindowSnapshotter, ReadsOnlyRegularAppsWithEntriesOnScreen) {
    const RunningApp agent{3, ActivationPolicy::accessory, "org.agent", "Agent"};
    const RunningApp nameless{4, ActivationPolicy::regular, std::nullopt, "Script"};
    const RunningApp elsewhere{5, ActivationPolicy::regular, "org.terminal", "Terminal"};
    const std::vector running{notes, agent, nameless, elsewhere, mail};
    EXPECT_THAT(appsToRead(running, {.ignoredBundleIDs = {"org.Notes"}}),
                ElementsAre(notes, elsewhere, mail));
    EXPECT_THAT(appsToRead(running, {.excludedBundleID = "org.mail"}), ElementsAre(notes, elsewhere));
    EXPECT_THAT(appsToRead(running, {.ignoredBundleIDs = {"org.notes"}}), ElementsAre(elsewhere, mail));
    EXPECT_THAT(appsToRead(running, {.onlyBundleIDs = std::set<std::string>{"org.terminal"}}),
                ElementsAre(elsewhere));
}

TEST(WindowSnapshotter, NumbersWindowsFrontToBackAndRepairsTheirTexts) {
    Journal journal;
    const auto reading = [&](std::optional<std::string> title, const Rect& bounds) {
        return WindowReading{
            std::make_shared<ScriptedWindow>(journal),
            {std::move(title), standardWindowSubrole, false, false, bounds.origin, bounds.size}};
    };
    const Rect onRight{{1200, 0}, {500, 500}};
    const Rect lookalike{{110, 120}, {400, 300}};
    const std::vector<AppWindows> apps{
        {{1, ActivationPolicy::regular, "org.notes", "N\xffotes"},
         {reading("first", frame), reading("caf\xe9", frame)}},
        {mail, {reading("unknown depth", lookalike), reading(std::nullopt, onRight)}},
        {{3, ActivationPolicy::regular, "org.terminal", "Terminal"}, {reading("elsewhere", frame)}}};
    const auto windows = currentWindows(
        apps, {{2, onRight, 1}, {1, frame, 2}, {2, {{100, 100}, {380, 290}}, 3}, {1, frame, 4}});
    DeskSnapshot snapshot;
    std::ranges::transform(windows, std::back_inserter(snapshot.windows), &CurrentWindow::window);
    EXPECT_THAT(VisibleWindows::records(VisibleWindows::ordinary(snapshot, twoDisplays)),
                ElementsAre(WindowRecord{"org.mail", "org.mail", "", onRight, "right", 0, {}},
                            WindowRecord{"org.notes", "N\uFFFDotes", "first", frame, "left", 1, {}},
                            WindowRecord{"org.notes", "N\uFFFDotes", "caf\uFFFD", frame, "left", 2, {}},
                            WindowRecord{"org.mail", "org.mail", "unknown depth", lookalike, "left", 3, {}}));
    EXPECT_EQ(windows[1].handle.element(), apps[0].windows[0].element);
}

} // namespace
} // namespace vantrel

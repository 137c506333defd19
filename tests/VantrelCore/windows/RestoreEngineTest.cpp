// Moving scripted windows: which calls are made, in which order, and what is reported.
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/AXWindowHandle.h"
#include "VantrelCore/windows/WindowPairing.h"
#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <algorithm>
#include <fmt/ranges.h>
#include <gmock/gmock.h>
#include <limits>

namespace vantrel {
namespace {

using RestoreEngine::Options;
using RestoreEngine::Raising;
using RestoreEngine::Sizes;
using testing::Contains, testing::ElementsAre, testing::Field, testing::IsEmpty, testing::Not;
using Item = RestoreReport::Item;
using Kind = RestoreReport::Kind;
using Outcome = RestoreReport::Outcome;

constexpr Rect target{{10, 20}, {300, 200}};
constexpr Rect elsewhere{{500, 500}, {640, 480}};
const Outcome restored{Kind::restored, ""};
const Outcome retried{Kind::retried, ""};
const Outcome rejected{Kind::failed, "app rejected the move"};
const Outcome drifted{Kind::failed, "window drifted after move"};

// Lands this far right of its target and this much too wide.
auto landingOff(double right, double wider) {
    return [=](Rect before, const FrameWrite& write) {
        const Rect after = ScriptedWindow::obey(before, write);
        const bool isMove = std::holds_alternative<Point>(write);
        return Rect{{after.minX() + (isMove ? right : 0), after.minY()},
                    {after.width() + (isMove ? 0 : wider), after.height()}};
    };
}

auto obeyingAfter(int writes) {
    return [writes](Rect before, const FrameWrite& write) mutable {
        return --writes >= 0 ? before : ScriptedWindow::obey(before, write);
    };
}

struct SavedDesk : ScriptedDesk {
    // A saved window at `target`, zOrder as given, and its live counterpart elsewhere.
    ScriptedWindow& add(const std::string& bundleID, const std::string& title, std::int64_t savedOrder = 0) {
        layout.windows.push_back({bundleID, "App " + bundleID, title, target, "", savedOrder, std::nullopt});
        current.push_back({.record = layout.windows.back(), .id = {}});
        current.back().record.frame = elsewhere;
        const auto window = open(bundleID, title, elsewhere);
        current.back().id = ids.back();
        return *window;
    }

    RestoreReport restore(const Options& options = {}) {
        return RestoreEngine::restore(layout, current, WindowPairing::pair(layout.windows, {}, current),
                                      options, port, permit, clock);
    }

    Layout layout;
    std::vector<LiveWindow> current;
};

TEST(RestoreEngine, RetriesAtOnceThenAfterAPauseWithTheSizeFirst) {
    const std::string move = "position size position. look. ";
    const std::string shift = "position. look. ";
    const std::string pause = "sleep 0.08. ";
    const std::string sizeFirst = pause + "size position position. look. ";
    const Options noSizes{.sizes = Sizes::leave};
    const Options stubborn{.stubbornBundleIDs = {"app"}};
    const std::tuple<const char*, std::function<Rect(Rect, const FrameWrite&)>, std::deque<bool>, Options,
                     Outcome, std::string>
        cases[] = {
            {"two points off", landingOff(2, 2), {}, {}, restored, move},
            {"too far off", landingOff(2.01, 0), {}, {}, drifted, move + move + sizeFirst},
            {"too wide", landingOff(0, 2.01), {}, {}, drifted, move + move + sizeFirst},
            {"stubborn", landingOff(5, 0), {}, stubborn, drifted, move + sizeFirst},
            {"position", ScriptedWindow::obey, {}, noSizes, restored, shift},
            {"position too far off", landingOff(5, 0), {}, noSizes, drifted, shift + shift + pause + shift},
            {"rejects the move", obeyingAfter(0), {true, false}, {}, rejected, move},
            {"obeys later, but says no",
             obeyingAfter(3),
             {true, true, true, false},
             {},
             retried,
             move + "position size position. look. look. "},
            {"obeys once made small", obeyingAfter(6), {}, {}, retried, move + move + sizeFirst},
        };
    for (const auto& [name, respond, taken, options, outcome, events] : cases) {
        SCOPED_TRACE(name);
        SavedDesk desk;
        ScriptedWindow& window = desk.add("app", "");
        window.respond = respond;
        window.taken = taken;
        const RestoreReport report = desk.restore(options);
        EXPECT_THAT(report.items, ElementsAre(Field(&Item::outcome, outcome)));
        EXPECT_NEAR(report.elapsed, events.contains("sleep") ? 0.08 : 0, 1e-9);
        EXPECT_EQ(fmt::format("{}. ", fmt::join(desk.journal, ". ")), events);
    }
}

TEST(RestoreEngine, RestoresAppsInByteOrderAndTheLastOnesInTheirOwnWave) {
    SavedDesk desk;
    desk.add("b", "b1");
    desk.add("a", "a1");
    desk.add("Z", "z1");
    desk.add("a", "a2");
    const RestoreReport report = desk.restore({.restoreLast = {"a", "unknown"}});
    EXPECT_THAT(desk.background.waveSizes, ElementsAre(2, 1));
    EXPECT_THAT(report.items, ElementsAre(Field(&Item::title, "z1"), Field(&Item::title, "b1"),
                                          Field(&Item::title, "a1"), Field(&Item::title, "a2")));
}

TEST(RestoreEngine, RaisesWindowsBackToFrontOnRequest) {
    SavedDesk desk;
    desk.add("a", "front", 0).attributes.position.reset();
    desk.add("b", "back", 7);
    desk.add("a", "middle", 3);
    desk.restore();
    EXPECT_THAT(desk.journal, Not(Contains(testing::EndsWith("raise"))));
    desk.restore({.raising = Raising::raise});
    auto events = desk.journal;
    std::erase_if(events, [](const std::string& event) { return !event.ends_with("raise"); });
    EXPECT_THAT(events, ElementsAre("back: raise", "middle: raise", "front: raise"));
}

TEST(RestoreEngine, SkipsClosedWindowsAndIgnoresUnknownOnes) {
    SavedDesk desk;
    EXPECT_EQ(desk.restore(), RestoreReport{});
    desk.add("gone", "g");
    desk.current.clear();
    desk.add("app", "w").respond = obeyingAfter(3);
    desk.add("stranger", "s");
    desk.layout.windows.pop_back();
    const RestoreReport report = desk.restore();
    const Outcome missing{Kind::skipped, "window no longer exists"};
    ASSERT_EQ(report.items.size(), 2U);
    EXPECT_EQ(report.items[0],
              (Item{"App app", "app", "w", retried, 1,
                    RestoreReport::Move{desk.ids[1], Pairing::sameTitle, elsewhere, target, target}}));
    EXPECT_TRUE(report.items[0].move->hasMoved());
    EXPECT_EQ(report.items[1], (Item{"App gone", "gone", "g", missing, 0}));
    EXPECT_EQ(report.expectedCount(), 2U);
    EXPECT_EQ(report.restoredCount(), 1U);
    EXPECT_EQ(report.skippedCount(), 1U);
    EXPECT_EQ(report.failedCount(), 0U);
    EXPECT_THAT(desk.journal, Not(Contains(testing::StartsWith("s: "))));
}

TEST(RestoreEngine, StrayWindowsOfOneWaveShareAPause) {
    SavedDesk desk;
    for (int window = 0; window < 10; ++window) {
        desk.add(fmt::format("app{}", window % 3), fmt::format("window {}", window)).respond =
            obeyingAfter(6);
    }
    const RestoreReport report = desk.restore();
    EXPECT_EQ(report.restoredCount(), 10U);
    EXPECT_NEAR(report.elapsed, RestoreEngine::settleSeconds, 1e-9);
}

TEST(RestoreEngine, ARevokedPermitMovesAndRaisesNothing) {
    SavedDesk desk;
    desk.add("app", "w");
    desk.permit.revoke();
    EXPECT_THAT(desk.restore({.raising = Raising::raise}).items,
                ElementsAre(Field(&Item::outcome, rejected)));
    EXPECT_THAT(desk.journal, IsEmpty());
    EXPECT_FALSE(desk.permit.isUsed());
}

constexpr Rect slot{{740, 125}, {700, 600}};

class DesignedPlacementTest : public testing::Test {
protected:
    RestoreEngine::DesignedPlacement place() {
        const std::vector<RestoreEngine::DesignedSlot> slots{
            {desk.ids.front(), slot, {{0, 25}, {1440, 875}}}};
        return RestoreEngine::placeDesigned(slots, desk.port, desk.permit,
                                            [&](double seconds) {
                                                pauses.push_back(seconds);
                                                if (pauses.size() <= straysAfter) {
                                                    window->setFrame({{300, 300}, {500, 400}});
                                                }
                                            })
            .front();
    }

    ScriptedDesk desk;
    std::shared_ptr<ScriptedWindow> window = desk.open("app", "", {{0, 0}, {100, 100}});
    std::vector<double> pauses;
    // After this many pauses the window is found elsewhere.
    std::size_t straysAfter = 0;
};

TEST_F(DesignedPlacementTest, PlacesAnObedientWindowAfterOnePause) {
    EXPECT_EQ(place(), RestoreEngine::DesignedPlacement::placed(slot));
    EXPECT_THAT(pauses, ElementsAre(RestoreEngine::settleSeconds));
    EXPECT_THAT(desk.journal, ElementsAre("size position position", "look", "position", "look", "read"));
}

TEST_F(DesignedPlacementTest, PutsAStrayingWindowBackOnceAfterALongerPause) {
    straysAfter = 1;
    EXPECT_EQ(place(), RestoreEngine::DesignedPlacement::placed(slot));
    EXPECT_THAT(pauses, ElementsAre(RestoreEngine::settleSeconds, testing::Gt(RestoreEngine::settleSeconds)));
}

TEST_F(DesignedPlacementTest, SeatsAClampedWindowInsideTheDisplay) {
    for (const Rect seat :
         {Rect{{840, 125}, {500, 600}}, Rect{{540, 125}, {900, 600}}, Rect{{0, 125}, {2000, 600}}}) {
        window->respond = [&](Rect before, const FrameWrite& write) {
            return Rect{ScriptedWindow::obey(before, write).origin, seat.size};
        };
        EXPECT_EQ(place(), RestoreEngine::DesignedPlacement::placedClampedSize(seat));
        EXPECT_EQ(window->attributes.frame(), seat);
    }
}

TEST_F(DesignedPlacementTest, FailsWhenAWindowStraysRejectsOrVanishes) {
    straysAfter = 2;
    EXPECT_EQ(place(), RestoreEngine::DesignedPlacement::failed());
    window->respond = [](Rect before, const FrameWrite& write) {
        return Rect{ScriptedWindow::obey(before, write).origin, {slot.width(), 500}};
    };
    EXPECT_EQ(place(), RestoreEngine::DesignedPlacement::failed()) << "only another height";
    window->taken.assign(8, false);
    EXPECT_EQ(place(), RestoreEngine::DesignedPlacement::failed());
    window->attributes.position.reset();
    EXPECT_EQ(place(), RestoreEngine::DesignedPlacement::failed());
}

class AXWindowHandleTest : public testing::Test {
protected:
    Journal journal;
    std::shared_ptr<ScriptedWindow> window = std::make_shared<ScriptedWindow>(journal);
    AXWindowHandle handle{window};
};

TEST_F(AXWindowHandleTest, AnyFailureReadsAsUnavailable) {
    const auto broken = std::make_shared<ScriptedWindow>(journal);
    broken->attributes = {"Notes", standardWindowSubrole, true, true, Point{1, 2}, Size{3, 4}};
    broken->doesThrow = true;
    window->attributes.position = Point{1, 2};
    for (const AXWindowHandle& unavailable : {handle, AXWindowHandle(broken), AXWindowHandle(nullptr)}) {
        EXPECT_EQ(unavailable.title(), "");
        EXPECT_EQ(unavailable.subrole(), std::nullopt);
        EXPECT_FALSE(unavailable.isMinimized() || unavailable.isFullscreen());
        EXPECT_EQ(unavailable.frame(), std::nullopt);
        EXPECT_EQ(unavailable.raise(), unavailable.element() == window);
        EXPECT_EQ(unavailable.setFrame(target), unavailable.element() == window);
    }
    broken->doesThrow = false;
    EXPECT_TRUE(AXWindowHandle(broken).isMinimized() && AXWindowHandle(broken).isFullscreen());
}

TEST_F(AXWindowHandleTest, WritesPositionSizePositionAndOnlyTheLastMayFail) {
    const std::pair<std::deque<bool>, bool> cases[] = {
        {{true, true, false}, true}, {{false, true, true}, false}, {{true, false, true}, false}};

    for (const auto& [taken, isSuccess] : cases) {
        window->taken = taken;
        EXPECT_EQ(handle.setFrame(target), isSuccess);
        window->taken = taken;
        EXPECT_EQ(handle.setFrameSizeFirst(target), isSuccess);
        window->taken = taken;
        EXPECT_EQ(handle.setPosition(target.origin), taken.front());
        window->taken.clear();
    }
    auto events = journal;
    events.resize(3);
    EXPECT_THAT(events, ElementsAre("position size position", "size position position", "position"));
}

TEST_F(AXWindowHandleTest, RefusesInfiniteAndUndefinedNumbers) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(handle.setFrame({{0, 0}, {nan, 10}}));
    EXPECT_FALSE(handle.setFrameSizeFirst({{0, infinity}, {10, 10}}));
    EXPECT_FALSE(handle.setPosition({nan, 0}));
    EXPECT_THAT(journal, IsEmpty());
}

} // namespace
} // namespace vantrel

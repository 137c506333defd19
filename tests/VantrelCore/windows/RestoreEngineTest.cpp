#include "VantrelCore/windows/RestoreEngine.h"

#include "VantrelCore/windows/RestoreOrder.h"
#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <algorithm>
#include <fmt/ranges.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using RestoreEngine::Options;
using RestoreEngine::Raising;
using RestoreEngine::Sizes;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::Not;
using Item = RestoreReport::Item;
using Kind = RestoreReport::Kind;
using Outcome = RestoreReport::Outcome;

constexpr Rect target{{10, 20}, {300, 200}};
const Outcome restored{Kind::restored, ""};
const Outcome retried{Kind::retried, ""};
const Outcome rejected{Kind::failed, "app rejected the move"};
const Outcome drifted{Kind::failed, "window drifted after move"};

// Stands so far to the right of where it is sent, so much wider than it is made.
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

struct Desk {
    // A saved window at `target`, zOrder as given, and its live counterpart elsewhere.
    ScriptedWindow& add(const std::string& bundleID, const std::string& title, std::int64_t savedOrder = 0) {
        layout.windows.push_back({bundleID, "App " + bundleID, title, target, "", savedOrder, std::nullopt});
        auto window = std::make_shared<ScriptedWindow>(journal, title);
        window->setFrame({{500, 500}, {640, 480}});
        current.push_back({layout.windows.back(), AXWindowHandle(window)});
        return *window;
    }

    RestoreReport restore(const Options& options = {}) {
        return RestoreEngine::restore(layout, current, options, clock, background);
    }

    Journal journal;
    ScriptedClock clock{journal};
    InTurn background;
    Layout layout;
    std::vector<CurrentWindow> current;
};

TEST(RestoreEngine, AStrayingWindowIsMovedAgainThenGivenAPauseThenSizedFirst) {
    const std::string move = "position size position. look. ";
    const std::string shift = "position. look. ";
    const std::string pause = "sleep 0.08. ";
    const std::string sizeFirst = pause + "size position position. look. ";
    const Options noSizes{.sizes = Sizes::leave};
    const Options stubborn{.stubbornBundleIDs = {"app"}};
    const struct {
        const char* name;
        std::function<Rect(Rect, const FrameWrite&)> respond;
        std::deque<bool> taken;
        Options options;
        Outcome outcome;
        std::string events;
    } cases[] = {
        {"two points off", landingOff(2, 2), {}, {}, restored, move},
        {"too far off", landingOff(2.01, 0), {}, {}, drifted, move + move + sizeFirst},
        {"too wide", landingOff(0, 2.01), {}, {}, drifted, move + move + sizeFirst},
        {"stubborn", landingOff(5, 0), {}, stubborn, drifted, move + sizeFirst},
        {"position", ScriptedWindow::obey, {}, noSizes, restored, shift},
        {"position too far off", landingOff(5, 0), {}, noSizes, drifted, shift + shift + pause + shift},
        {"rejects the move", obeyingAfter(0), {true, false}, {}, rejected, "position size position. "},
        {"obeys later, but says no", obeyingAfter(3), {true, true, true, false}, {}, retried, move + move},
        {"obeys once made small", obeyingAfter(6), {}, {}, retried, move + move + sizeFirst},
    };
    for (const auto& [name, respond, taken, options, outcome, events] : cases) {
        SCOPED_TRACE(name);
        Desk desk;
        ScriptedWindow& window = desk.add("app", "");
        window.respond = respond;
        window.taken = taken;
        const RestoreReport report = desk.restore(options);
        EXPECT_THAT(report.items, ElementsAre(Item{"App app", "app", "", outcome}));
        EXPECT_NEAR(report.elapsed, events.contains("sleep") ? 0.08 : 0, 1e-9);
        EXPECT_EQ(fmt::format("{}. ", fmt::join(desk.journal.events(), ". ")), events);
    }
}

TEST(RestoreEngine, AWindowThatBreaksDownCostsNoOtherWindowItsPlace) {
    Desk desk;
    desk.add("app", "bad").doesThrow = true;
    desk.add("app", "unreadable").attributes.size.reset();
    const ScriptedWindow& good = desk.add("app", "good");
    EXPECT_THAT(desk.restore({.raising = Raising::raise}).items,
                ElementsAre(Field(&Item::outcome, rejected), Field(&Item::outcome, drifted),
                            Field(&Item::outcome, restored)));
    EXPECT_EQ(good.attributes.frame(), target);
}

TEST(RestoreEngine, ApplicationsGoInByteOrderAndTheLastOnesInAWaveOfTheirOwn) {
    Desk desk;
    desk.add("b", "b1");
    desk.add("a", "a1");
    desk.add("Z", "z1");
    desk.add("a", "a2");
    const RestoreReport report = desk.restore({.restoreLast = {"a", "unknown"}});
    EXPECT_THAT(desk.background.waveSizes, ElementsAre(2, 1));
    EXPECT_THAT(report.items, ElementsAre(Field(&Item::title, "z1"), Field(&Item::title, "b1"),
                                          Field(&Item::title, "a1"), Field(&Item::title, "a2")));
}

TEST(RestoreEngine, WindowsAreRaisedBackMostFirstAndOnlyOnRequest) {
    Desk desk;
    desk.add("a", "front", 0).attributes.position.reset();
    desk.add("b", "back", 7);
    desk.add("a", "middle", 3);
    desk.restore();
    EXPECT_THAT(desk.journal.events(), Not(Contains(testing::EndsWith("raise"))));
    desk.restore({.raising = Raising::raise});
    auto events = desk.journal.events();
    std::erase_if(events, [](const std::string& event) { return !event.ends_with("raise"); });
    EXPECT_THAT(events, ElementsAre("back: raise", "middle: raise", "front: raise"));
}

TEST(RestoreEngine, SavedWindowsWithoutALiveOneAreSkippedAndStrangersLeftAlone) {
    Desk desk;
    EXPECT_EQ(desk.restore(), RestoreReport{});
    desk.add("gone", "g");
    desk.current.clear();
    desk.add("app", "w").respond = obeyingAfter(3);
    desk.add("stranger", "s");
    desk.layout.windows.pop_back();
    const RestoreReport report = desk.restore();
    const Outcome missing{Kind::skipped, "window no longer exists"};
    EXPECT_THAT(report.items,
                ElementsAre(Item{"App app", "app", "w", retried}, Item{"App gone", "gone", "g", missing}));
    EXPECT_EQ(report.expectedCount(), 2U);
    EXPECT_EQ(report.restoredCount(), 1U);
    EXPECT_EQ(report.skippedCount(), 1U);
    EXPECT_EQ(report.failedCount(), 0U);
    EXPECT_THAT(desk.journal.events(), Not(Contains(testing::StartsWith("s: "))));
}

TEST(RestoreEngine, WorkersOfOneWaveReportEveryWindowOnce) {
    Desk desk;
    std::vector<std::string> titles;
    for (int window = 0; window < 128; ++window) {
        titles.push_back(fmt::format("window {}", window));
        desk.add(fmt::format("app{}", window % 16), titles.back());
    }
    OnThreads threads;
    const auto report = RestoreEngine::restore(desk.layout, desk.current, {}, desk.clock, threads);
    std::vector<std::string> reported;
    std::ranges::transform(report.items, std::back_inserter(reported), &Item::title);
    EXPECT_THAT(reported, testing::UnorderedElementsAreArray(titles));
}

TEST(RestoreOrder, KeepsTheGivenOrderAndLeavesOutEmptyWaves) {
    using Waves = std::vector<std::vector<std::string>>;
    EXPECT_EQ(RestoreOrder::waves({}, {"a"}), Waves{});
    EXPECT_EQ(RestoreOrder::waves({"b", "a"}, {}), (Waves{{"b", "a"}}));
    EXPECT_EQ(RestoreOrder::waves({"c", "b", "a"}, {"c", "a"}), (Waves{{"b"}, {"c", "a"}}));
    EXPECT_EQ(RestoreOrder::waves({"b", "a"}, {"a", "b"}), (Waves{{"b", "a"}}));
}

} // namespace
} // namespace vantrel

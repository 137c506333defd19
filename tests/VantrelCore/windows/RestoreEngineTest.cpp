#include "VantrelCore/windows/RestoreEngine.h"

#include "VantrelCore/windows/RestoreOrder.h"
#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using RestoreEngine::Options;
using RestoreEngine::Raising;
using RestoreEngine::Sizes;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = RestoreReport::Kind;
using Outcome = RestoreReport::Outcome;

constexpr Rect start{{500, 500}, {640, 480}};
constexpr Rect target{{10, 20}, {300, 200}};
const Outcome restored{Kind::restored, ""};
const Outcome retried{Kind::retried, ""};
const Outcome rejected{Kind::failed, "app rejected the move"};
const Outcome drifted{Kind::failed, "window drifted after move"};
const Outcome missing{Kind::skipped, "window no longer exists"};

// Lands the given distance to the right of where it is sent.
auto landingOff(double distance) {
    return [distance](Rect before, const FrameWrite& write) {
        Rect after = ScriptedWindow::obey(before, write);
        after.origin.x += std::holds_alternative<Point>(write) ? distance : 0;
        return after;
    };
}

class RestoreEngineTest : public testing::Test {
protected:
    // A saved window at `target`, zOrder as given, and its live counterpart at `start`.
    ScriptedWindow& add(const std::string& bundleID, const std::string& title, std::int64_t savedOrder = 0) {
        saveOnly(bundleID, title, savedOrder);
        auto window = std::make_shared<ScriptedWindow>(journal, title);
        window->setFrame(start);
        WindowRecord live = layout.windows.back();
        live.zOrder = static_cast<std::int64_t>(current.size());
        current.push_back({live, AXWindowHandle(window)});
        return *window;
    }

    void saveOnly(const std::string& bundleID, const std::string& title, std::int64_t savedOrder = 0) {
        layout.windows.push_back({.bundleID = bundleID,
                                  .appName = "App " + bundleID,
                                  .title = title,
                                  .frame = target,
                                  .displayUUID = "",
                                  .zOrder = savedOrder,
                                  .isGhost = std::nullopt});
    }

    RestoreReport restore(const Options& options = {}) {
        return RestoreEngine::restore(layout, current, options, clock, background);
    }

    Outcome onlyOutcome(const Options& options = {}) {
        const RestoreReport report = restore(options);
        return report.items.size() == 1 ? report.items.front().outcome
                                        : Outcome{Kind::failed, "not one item"};
    }

    Journal journal;
    ScriptedClock clock{journal};
    InTurn background;
    Layout layout;
    std::vector<CurrentWindow> current;
};

TEST_F(RestoreEngineTest, AnObedientWindowIsMovedOnceAndCheckedByItsFrameAlone) {
    const ScriptedWindow& window = add("app", "w");
    EXPECT_EQ(onlyOutcome(), restored);
    EXPECT_EQ(window.attributes.frame(), target);
    EXPECT_THAT(journal.events(), ElementsAre("w: position size position", "w: look"));
}

TEST_F(RestoreEngineTest, TwoPointsOffIsReachedAndMoreIsNot) {
    ScriptedWindow& window = add("app", "w");
    window.respond = landingOff(2.0);
    EXPECT_EQ(onlyOutcome(), restored);
    window.respond = landingOff(2.01);
    EXPECT_EQ(onlyOutcome(), drifted);
    // With sizes: width counts too.
    window.respond = [](Rect before, const FrameWrite& write) {
        Rect after = ScriptedWindow::obey(before, write);
        after.size.width = target.width() + 2.01;
        return after;
    };
    EXPECT_EQ(onlyOutcome(), drifted);
}

TEST_F(RestoreEngineTest, WithoutSizesOnlyThePositionIsMovedAndChecked) {
    ScriptedWindow& window = add("app", "w");
    EXPECT_EQ(onlyOutcome({.sizes = Sizes::leave}), restored);
    EXPECT_EQ(window.attributes.frame(), (Rect{target.origin, start.size}));
    window.respond = landingOff(5);
    EXPECT_EQ(onlyOutcome({.sizes = Sizes::leave}), drifted);
    for (const auto& event : journal.events()) {
        EXPECT_THAT(event, testing::Not(testing::HasSubstr("size")));
    }
}

TEST_F(RestoreEngineTest, ARejectedFirstMoveIsTheEndOfIt) {
    add("app", "w").taken = {true, false, true};
    EXPECT_EQ(onlyOutcome(), rejected);
    EXPECT_THAT(journal.events(), ElementsAre("w: position size position"));
}

TEST_F(RestoreEngineTest, AStrayingWindowIsMovedAgainThenGivenAPauseThenSizedFirst) {
    add("app", "w").respond = landingOff(50);
    EXPECT_EQ(onlyOutcome(), drifted);
    EXPECT_THAT(journal.events(),
                ElementsAre("w: position size position", "w: look", "w: position size position", "w: look",
                            "sleep 0.08", "w: size position position", "w: look"));
}

TEST_F(RestoreEngineTest, AStubbornApplicationGetsThePauseInsteadOfASecondMove) {
    add("app", "w").respond = landingOff(50);
    EXPECT_EQ(onlyOutcome({.stubbornBundleIDs = {"app"}}), drifted);
    EXPECT_THAT(journal.events(), ElementsAre("w: position size position", "w: look", "sleep 0.08",
                                              "w: size position position", "w: look"));
}

TEST_F(RestoreEngineTest, AWindowThatGivesInIsRetried) {
    // Refuses every position until it has been made small, as a window does that would leave its display.
    ScriptedWindow& window = add("app", "w");
    int writes = 0;
    window.respond = [&](Rect before, const FrameWrite& write) {
        return ++writes <= 6 ? before : ScriptedWindow::obey(before, write);
    };
    EXPECT_EQ(onlyOutcome(), retried);
    EXPECT_EQ(writes, 9);
}

TEST_F(RestoreEngineTest, ResultsOfRetriesDoNotCountOnlyWhereTheWindowStands) {
    ScriptedWindow& window = add("app", "w");
    int writes = 0;
    window.respond = [&](Rect before, const FrameWrite& write) {
        return ++writes <= 3 ? before : ScriptedWindow::obey(before, write);
    };
    window.taken = {true, true, true, true, true, false};
    EXPECT_EQ(onlyOutcome(), retried);
}

TEST_F(RestoreEngineTest, AnUnreadableFrameIsNotReached) {
    add("app", "w").attributes.size.reset();
    EXPECT_EQ(onlyOutcome(), drifted);
}

TEST_F(RestoreEngineTest, AWindowThatBreaksDownCostsNoOtherWindowItsPlace) {
    add("app", "bad").doesThrow = true;
    const ScriptedWindow& good = add("app", "good");
    const RestoreReport report = restore({.raising = Raising::raise});
    EXPECT_THAT(report.items, ElementsAre(testing::Field(&RestoreReport::Item::outcome, rejected),
                                          testing::Field(&RestoreReport::Item::outcome, restored)));
    EXPECT_EQ(good.attributes.frame(), target);
}

TEST_F(RestoreEngineTest, ApplicationsGoInByteOrderAndTheLastOnesInAWaveOfTheirOwn) {
    add("b", "b1");
    add("a", "a1");
    add("Z", "z1");
    add("a", "a2");
    const RestoreReport report = restore({.sizes = Sizes::leave, .restoreLast = {"a", "unknown"}});
    EXPECT_THAT(background.waveSizes, ElementsAre(2, 1));
    const auto titled = [](const char* title) { return testing::Field(&RestoreReport::Item::title, title); };
    EXPECT_THAT(report.items, ElementsAre(titled("z1"), titled("b1"), titled("a1"), titled("a2")));
}

TEST_F(RestoreEngineTest, WindowsAreRaisedBackMostFirstAndOnlyOnRequest) {
    add("a", "front", 0).attributes.position.reset();
    add("b", "back", 7);
    add("a", "middle", 3);
    restore();
    EXPECT_THAT(journal.events(), testing::Not(testing::Contains(testing::EndsWith("raise"))));
    const std::size_t before = journal.events().size();
    restore({.raising = Raising::raise});
    auto events = journal.events();
    events.erase(events.begin(), events.begin() + static_cast<std::ptrdiff_t>(before));
    std::erase_if(events, [](const std::string& event) { return !event.ends_with("raise"); });
    EXPECT_THAT(events, ElementsAre("back: raise", "middle: raise", "front: raise"));
}

TEST_F(RestoreEngineTest, SavedWindowsWithoutALiveOneAreSkippedAndStrangersLeftAlone) {
    saveOnly("gone", "g");
    add("app", "w");
    layout.windows.pop_back();
    saveOnly("app", "w");
    add("stranger", "s");
    layout.windows.pop_back();
    const RestoreReport report = restore();
    EXPECT_THAT(report.items, ElementsAre(RestoreReport::Item{"App app", "app", "w", restored},
                                          RestoreReport::Item{"App gone", "gone", "g", missing}));
    EXPECT_EQ(report.expectedCount(), 2U);
    EXPECT_EQ(report.restoredCount(), 1U);
    EXPECT_EQ(report.skippedCount(), 1U);
    EXPECT_EQ(report.failedCount(), 0U);
    EXPECT_THAT(journal.events(), testing::Not(testing::Contains(testing::StartsWith("s: "))));
}

TEST_F(RestoreEngineTest, TheReportTellsTheTimeTakenAlsoForNothing) {
    EXPECT_EQ(restore(), RestoreReport{});
    EXPECT_THAT(background.waveSizes, IsEmpty());
    add("app", "w").respond = landingOff(50);
    EXPECT_NEAR(restore().elapsed, 0.08, 1e-9);
}

TEST_F(RestoreEngineTest, WorkersOfOneWaveReportEveryWindowOnce) {
    for (int app = 0; app < 16; ++app) {
        for (int window = 0; window < 8; ++window) {
            add(fmt::format("app{}", app), fmt::format("window {} of {}", window, app));
        }
    }
    OnThreads threads;
    const RestoreReport report = RestoreEngine::restore(layout, current, {}, clock, threads);
    EXPECT_EQ(report.restoredCount(), 128U);
    std::set<std::string> titles;
    for (const auto& item : report.items) {
        titles.insert(item.title);
    }
    EXPECT_EQ(titles.size(), 128U);
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

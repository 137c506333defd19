// The restore engine on the simulated desk: workers that really wait, on virtual time.
#include "tests/simulated/SimulatedDesk.h"

#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/WindowSnapshotter.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using simulated::SimulatedDesk;
using simulated::SimulatedTime;
using simulated::WindowID;
using Kind = RestoreReport::Kind;

class RestoreOnASimulatedDesk : public testing::Test {
protected:
    WindowID openIn(const std::string& app, const simulated::WindowBehaviour& behaviour = {}) {
        const auto pid = desk.launch("org.example." + app, app);
        return desk.open(pid, app, {{100, 100}, {400, 300}}, behaviour);
    }

    // The desk as it is now, every window of it `by` points to the right and below.
    Layout shifted(double by) {
        Layout layout;
        for (const auto& window : desk.windows()) {
            const Rect frame{{window->frame.minX() + by, window->frame.minY() + by}, window->frame.size};
            layout.windows.push_back(
                {"org.example." + window->title, window->title, window->title, frame, "", 0, std::nullopt});
        }
        return layout;
    }

    // Starts a restore on a worker; `report` is set when it has ended.
    void restore(const Layout& layout) {
        time.run(WorkPriority::userInitiated, [this, layout] {
            const auto current =
                WindowSnapshotter::currentWindows(desk.accessibility(), {}, std::nullopt, {});
            report = RestoreEngine::restore(layout, current, {}, time, time);
        });
    }

    [[nodiscard]] Kind outcomeOf(const std::string& app) const {
        return std::ranges::find(report->items, app, &RestoreReport::Item::appName)->outcome.kind;
    }

    // Outlives the desk, whose end waits for the jobs.
    std::optional<RestoreReport> report;
    SimulatedTime time;
    SimulatedDesk desk{time, simulated::DeskSetup::named("laptop-and-monitor")};
};

TEST_F(RestoreOnASimulatedDesk, ASlowApplicationDelaysNoOther) {
    const WindowID quick = openIn("Quick");
    const WindowID slow = openIn("Slow", {.answerSeconds = 0.3});
    openIn("Refusing", {.refusesMoves = true});
    const WindowID drifting = openIn("Drifting", {.driftsBack = 2, .driftDelay = 0});
    const Layout layout = shifted(50);
    const Rect target{{150, 150}, {400, 300}};

    restore(layout);
    // Reading the slow application takes 0.3 seconds, each of its three writes and the check as long again.
    ASSERT_TRUE(time.runUntil([&] { return desk.window(quick).frame == target; }, 5));
    EXPECT_LT(time.monotonicSeconds(), 0.31);
    EXPECT_NE(desk.window(slow).frame, target);

    ASSERT_TRUE(time.runUntil([&] { return report.has_value(); }, 10));
    EXPECT_EQ(desk.window(slow).frame, target);
    EXPECT_EQ(desk.window(drifting).frame, target);
    EXPECT_EQ(outcomeOf("Quick"), Kind::restored);
    EXPECT_EQ(outcomeOf("Slow"), Kind::restored);
    EXPECT_EQ(outcomeOf("Drifting"), Kind::retried);
    EXPECT_EQ(outcomeOf("Refusing"), Kind::failed);
    EXPECT_NEAR(report->elapsed, 1.2, 0.001);
}

TEST_F(RestoreOnASimulatedDesk, AnApplicationThatStopsAnsweringHalfWayCostsOneDeadline) {
    const WindowID hanging = openIn("Hanging", {.answerSeconds = 0.01});
    const WindowID vanishing = openIn("Vanishing", {.vanishesWhenMoved = true});
    const auto pid = desk.window(hanging).pid;
    restore(shifted(50));
    time.schedule(0.02, [&] { desk.setHanging(pid, true); });

    ASSERT_TRUE(time.runUntil([&] { return report.has_value(); }, 10));
    EXPECT_EQ(outcomeOf("Hanging"), Kind::failed);
    EXPECT_EQ(outcomeOf("Vanishing"), Kind::failed);
    EXPECT_FALSE(desk.exists(vanishing));
    // Three writes of one move, each given up on after its second, and nothing more.
    EXPECT_LE(report->elapsed, 3.1);
}

TEST_F(RestoreOnASimulatedDesk, AChangeOfDisplaysArrivesInTheMiddleOfARestore) {
    const WindowID slow = openIn("Slow", {.answerSeconds = 0.5});
    std::vector<double> events;
    desk.displayServices().setReconfigurationHandler([&] { events.push_back(time.monotonicSeconds()); });
    restore(shifted(50));
    time.schedule(0.6, [&] { desk.change(simulated::DeskSetup::named("laptop")); });

    ASSERT_TRUE(time.runUntil([&] { return !events.empty(); }, 10));
    EXPECT_FALSE(report.has_value());
    ASSERT_TRUE(time.runUntil([&] { return report.has_value(); }, 10));
    EXPECT_EQ(desk.displays().size(), 1U);
    EXPECT_EQ(desk.window(slow).frame.origin, (Point{150, 150}));
}

TEST_F(RestoreOnASimulatedDesk, AJobUnderWayEndsWithTheSimulation) {
    openIn("Slow", {.answerSeconds = 0.5});
    restore(shifted(50));
    time.runFor(0.7);
    EXPECT_TRUE(time.hasJobs());
    time.endJobs();
    EXPECT_FALSE(time.hasJobs());
    EXPECT_TRUE(report.has_value());
}

} // namespace
} // namespace vantrel

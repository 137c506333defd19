// Capture and restore on the simulated desk: workers that really wait, on virtual time.
#include "tests/simulated/SimulatedDesk.h"

#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/WindowSnapshotter.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using Kind = RestoreReport::Kind;

class RestoreOnASimulatedDesk : public testing::Test {
protected:
    simulated::WindowID openIn(const std::string& app, const simulated::WindowBehaviour& behaviour = {}) {
        return desk.open(desk.launch("org.example." + app, app), app, {{100, 100}, {400, 300}}, behaviour);
    }

    // Outlives the desk, whose end waits for the jobs.
    std::optional<RestoreReport> report;
    simulated::SimulatedTime time;
    simulated::SimulatedDesk desk{time, simulated::DeskSetup::named("laptop-and-monitor")};
};

TEST_F(RestoreOnASimulatedDesk, ASlowApplicationDelaysNoOther) {
    const auto quick = openIn("Quick");
    const auto slow = openIn("Slow", {.answerSeconds = 0.3});
    const auto drifting = openIn("Drifting", {.driftsBack = 2, .driftDelay = 0});
    openIn("Refusing", {.refusesMoves = true});
    const Rect target{{150, 150}, {400, 300}};
    Layout layout;
    for (const auto& window : desk.windows()) {
        layout.windows.push_back({"org.example." + window->title, "", "", target, "", 0, std::nullopt});
    }
    time.run(WorkPriority::userInitiated, [&] {
        const auto current = WindowSnapshotter::currentWindows(desk.accessibility(), {}, std::nullopt, {});
        report = RestoreEngine::restore(layout, current, {}, time, time);
    });

    // Reading the slow application takes 0.3 seconds, each of its three writes and the check as long again.
    ASSERT_TRUE(time.runUntil([&] { return desk.window(quick).frame == target; }, 5));
    EXPECT_LT(time.monotonicSeconds(), 0.31);
    EXPECT_NE(desk.window(slow).frame, target);

    ASSERT_TRUE(time.runUntil([&] { return report.has_value(); }, 10));
    std::map<std::string, Kind> outcomes;
    for (const auto& item : report->items) {
        outcomes[item.bundleID] = item.outcome.kind;
    }
    EXPECT_EQ(outcomes, (std::map<std::string, Kind>{{"org.example.Drifting", Kind::retried},
                                                     {"org.example.Quick", Kind::restored},
                                                     {"org.example.Refusing", Kind::failed},
                                                     {"org.example.Slow", Kind::restored}}));
    EXPECT_EQ(desk.window(slow).frame, target);
    EXPECT_EQ(desk.window(drifting).frame, target);
    EXPECT_NEAR(report->elapsed, 1.2, 0.001);
}

TEST_F(RestoreOnASimulatedDesk, ASnapshotIsALayoutOfTheWholeDesk) {
    openIn("Notes");
    const auto displays = DisplayTopology::currentDisplays(desk.displayServices());
    const Date now = *dateFromIso8601("2026-03-01T09:30:00Z");
    const Layout expected{
        DisplayTopology::configID(displays),
        DisplayTopology::configName(displays),
        "Default",
        displays,
        {{"org.example.Notes", "Notes", "Notes", {{100, 100}, {400, 300}}, displays[0].uuid, 0, {}}},
        now,
        std::nullopt};
    EXPECT_EQ(WindowSnapshotter::snapshot(desk.accessibility(), displays, now), expected);
}

} // namespace
} // namespace vantrel

// The starting point of most controller tests: programs are open on a desk that the controller has learned.
#pragma once

#include "tests/Vantrel/controller/Story.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <iterator>

namespace vantrel::simulated {

using testing::Contains, testing::Each, testing::ElementsAre, testing::Field, testing::IsEmpty;
using testing::SizeIs, testing::StartsWith;

struct LearnedDesk : testing::Test {
    explicit LearnedDesk(const std::string& setup = "laptop") : story(setup) {
        story.openPrograms();
        story.start();
        story.learn();
        home = story.frames();
        story.controller->setHUDHandler([this](const HUDEvent& event) { shown.push_back(event); });
    }

    // Where the windows stood when they were learned.
    std::map<WindowID, Rect> home;
    // What the heads-up display has shown since, until a restart.
    std::vector<HUDEvent> shown;
    // The outcomes reported to the callers of restore(), undo() and whoever passed tell(), in order.
    std::vector<RestoreOutcome> told;
    // Destroyed first: its callbacks write to the members above.
    Story story;

    [[nodiscard]] RestoreOutcome::Done tell() {
        return [this](const RestoreOutcome& outcome) { told.push_back(outcome); };
    }
    [[nodiscard]] std::vector<RestoreOutcome::Kind> toldKinds() const {
        std::vector<RestoreOutcome::Kind> kinds;
        std::ranges::transform(told, std::back_inserter(kinds), &RestoreOutcome::kind);
        return kinds;
    }

    // Both send the request and then let `seconds` pass. False when the request is refused.
    bool restore(double seconds = 5) {
        const bool isAccepted = story.controller->restoreNow(RestoreSource::menu, tell());
        story.runFor(seconds);
        return isAccepted;
    }
    bool undo(double seconds = 5) {
        const bool isAccepted = story.controller->undoLastRestore(tell());
        story.runFor(seconds);
        return isAccepted;
    }

    // Waits until the requested restore begins or ends.
    [[nodiscard]] bool awaitRestore(bool isRunning, double limit = 10) {
        return story.time.runUntil([&] { return story.controller->restoreInFlight() == isRunning; }, limit);
    }

    void setRule(const std::string& bundleID, const AppRule::Action& action,
                 std::optional<bool> restoreLast = {}) {
        ASSERT_TRUE(story.controller->rules().setRule({bundleID, "App", action, restoreLast}));
    }
    void sleepAndWake() {
        story.system.setAsleep(true);
        story.system.setAsleep(false);
    }
    // Applications that take their time, so that something can happen meanwhile.
    void makeSlow(double seconds) { story.desk.window(story.mail).behaviour.answerSeconds = seconds; }
};

} // namespace vantrel::simulated

// The beginning of most controller tests: programs are open on a desk that the controller has learned.
#pragma once

#include "tests/Vantrel/controller/Story.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>

namespace vantrel::simulated {

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
    // What was told to whoever asked, in order.
    std::vector<RestoreOutcome> told;
    // The first to go, since it tells all of these.
    Story story;

    [[nodiscard]] RestoreOutcome::Done tell() {
        return [this](const RestoreOutcome& outcome) { told.push_back(outcome); };
    }
    [[nodiscard]] std::vector<RestoreOutcome::Kind> toldKinds() const {
        std::vector<RestoreOutcome::Kind> kinds;
        std::ranges::transform(told, std::back_inserter(kinds), &RestoreOutcome::kind);
        return kinds;
    }

    // Asks, and lets so many seconds pass; false when it is refused.
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

    // Waits until the restore that was asked for begins or ends.
    [[nodiscard]] bool awaitRestore(bool isRunning, double limit = 10) {
        return story.time.runUntil([&] { return story.controller->restoreInFlight() == isRunning; }, limit);
    }

    void fillDisk() {
        story.files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    }
};

} // namespace vantrel::simulated

// The chapters of random stories in which windows may not be moved, by the user or by the program.
#include "tests/Vantrel/controller/RandomStory.h"

#include <cstdint>
#include <iterator>
#include <optional>

namespace vantrel::simulated {

void RandomStory::userPinsTheLayout() {
    AppController& controller = *m_story.controller;
    std::optional<SaveOutcome::Kind> saved;
    controller.saveLayoutNow([&](const SaveOutcome& outcome) { saved = outcome.kind; });
    m_story.runFor(5);
    if (saved != SaveOutcome::Kind::saved) {
        return;
    }
    expect(controller.setPinned(true), "a stored layout can be pinned");
    const auto pinned = m_story.storedLayout();
    if (happens(40)) {
        userAsksForAnotherArrangement(*pinned);
        expect(controller.setPinned(false), "a layout can be unpinned");
        return;
    }
    userMovesWindows();
    if (happens(30)) {
        m_story.system.setAsleep(true);
        m_story.runFor(seconds(0, 20));
        m_story.system.setAsleep(false);
    }
    // Two looks and the restore.
    m_story.runFor(50);
    constexpr double driftTolerance = 2;
    checkStands(*pinned, "a pinned layout comes back", driftTolerance);
    expect(m_story.storedLayout() == pinned, "a pinned layout is not learned over");
    expect(controller.setPinned(false), "a layout can be unpinned");
}

void RandomStory::userAsksForAnotherArrangement(const Layout& pinned) {
    AppController& controller = *m_story.controller;
    m_hasRestoredDesk = false;
    Layout other = pinned;
    for (WindowRecord& window : other.windows) {
        window.frame = somewhere();
    }
    std::optional<RestoreOutcome::Kind> told;
    controller.layouts().applyLayout(other, [&](const RestoreOutcome& outcome) { told = outcome.kind; });
    m_story.runFor(10);
    expect(told == RestoreOutcome::Kind::finished, "a layout can be applied to a desk with a pinned one");
    if (happens(30)) {
        happens(50) ? m_story.system.setAsleep(true) : m_story.system.setLocked(true);
        m_story.runFor(seconds(0, 20));
        m_story.system.setAsleep(false);
        m_story.system.setLocked(false);
    }
    const bool isUndone = happens(30) && controller.undoLastRestore();
    m_story.runFor(90);
    if (!isUndone) {
        checkStands(other, "what the user asked for stays on a desk with a pinned layout");
        expect(m_story.published().isPinPausedForUser(), "a pin that is paused says so");
    }
    expect(m_story.storedLayout() == pinned, "a pinned layout is not learned over");
}

void RandomStory::nothingMayBeMoved() {
    AppController& controller = *m_story.controller;
    enum class Hindrance : std::uint8_t { noPermission, noWindowManager, switchedOff };
    constexpr Hindrance hindrances[] = {Hindrance::noPermission, Hindrance::noWindowManager,
                                        Hindrance::switchedOff};
    const Hindrance hindrance = hindrances[below(std::size(hindrances))];
    const auto hinder = [&](bool begins) {
        switch (hindrance) {
        case Hindrance::noPermission:
            m_story.desk.setTrusted(!begins);
            break;
        case Hindrance::noWindowManager:
            m_story.desk.setWindowManagerRunning(!begins);
            break;
        case Hindrance::switchedOff:
            controller.setEnabled(!begins);
        }
    };
    if (happens(30)) {
        controller.restoreNow(RestoreSource::menu);
        m_story.runFor(seconds(0, 0.1));
    }
    hinder(true);
    if (happens(50)) {
        controller.refreshStatus();
    }
    const bool doDisplaysChange = happens(50);
    doDisplaysChange ? changeDisplays() : userMovesWindows();
    m_story.runFor(seconds(16, 40));
    const Phase& phase = m_story.published().phase;
    expect(hindrance == Hindrance::switchedOff ? phase.is<Phase::Off>() : phase.is<Phase::NeedsPermission>(),
           "the phase tells why nothing is moved");
    const auto frames = m_story.frames();
    expect(!controller.restoreNow(RestoreSource::menu), "nothing is restored when nothing may be moved");
    m_story.runFor(2);
    expect(m_story.frames() == frames, "nothing is moved when nothing may be moved");
    hinder(false);
    m_story.runFor(2);
    expect(!phase.is<Phase::NeedsPermission>() && !phase.is<Phase::Off>(),
           "it is seen that windows may be moved again");
    // The restore at the beginning may have found everything in place before the user moved it.
    m_logBeforeMove.reset();
    // What was missed after a display change is made up for.
    m_hasRestoredDesk = doDisplaysChange && hindrance != Hindrance::switchedOff;
}

} // namespace vantrel::simulated

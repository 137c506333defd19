#include "Vantrel/controller/SleepWakeFlow.h"

#include "VantrelCore/windows/AXPermission.h"

namespace vantrel {

namespace {

// In points; a window that is off by more makes a pinned layout count as drifted.
constexpr double driftTolerance = 2;

} // namespace

void SleepWakeFlow::willSleep() {
    m_context.gate.fallAsleep();
    m_context.log("willSleep: snapshots suspended");
    m_missedWake = m_context.ports.mainQueue.after(longestFallingAsleep, [this] { handleWake(); });
}

void SleepWakeFlow::handleWake() {
    m_missedWake.reset();
    m_context.gate.wakeUp();
    m_context.log("didWake: checking pinned layout after settle");
    onReturn();
    lookAfterSettling();
}

void SleepWakeFlow::sessionLocked() {
    m_context.gate.lockSession();
    m_context.log("session locked: snapshots suspended");
}

void SleepWakeFlow::sessionUnlocked() {
    m_context.gate.unlockSession();
    m_context.log("session unlocked: checking pinned layout after settle");
    onReturn();
    lookAfterSettling();
}

void SleepWakeFlow::lookAfterSettling() {
    m_check = m_context.ports.mainQueue.after(
        m_context.settings.settleDelay() + wakeDelay, [this, began = m_context.gate.now()] {
            // A newer display change handles the desk itself. If the user is still away, the check runs on
            // their return.
            if (m_context.gate.isUndisturbed(began) && !m_context.gate.isAway()) {
                checkAfterWake();
                m_context.gate.resumeLearningAfter(0);
            }
        });
}

void SleepWakeFlow::checkAfterWake() {
    if (m_context.gate.isPassUnderWay()) {
        m_context.gate.afterPass([this, began = m_context.gate.now()] {
            if (m_context.gate.isUndisturbed(began) && !m_context.gate.isAway()) {
                checkAfterWake();
            }
        });
        return;
    }
    if (!m_context.state().activePinned || m_context.state().isPinPausedForUser() ||
        !m_context.state().enabled || !m_context.entitledToRun() || m_context.gate.isRestoring() ||
        !AXPermission::isGranted(m_context.ports.desk) || !m_context.isDeskCurrent()) {
        return;
    }
    const auto displays = m_context.currentDisplays();
    m_context.runPass(
        WorkPriority::utility,
        [scope = m_context.captureScope(displays), ports = m_context.ports] {
            return DeskCapture::picture(ports.desk, ports.clock, scope);
        },
        [this, displays, began = m_context.gate.now()](const std::optional<DeskCapture::Picture>& picture) {
            if (picture && m_context.gate.isUndisturbed(began) && m_context.isDeskCurrent()) {
                restoreIfDrifted(*picture, displays);
            }
        });
}

void SleepWakeFlow::restoreIfDrifted(const DeskCapture::Picture& picture,
                                     const std::vector<DisplayInfo>& displays) {
    const auto pinned = m_context.layoutToRestore();
    if (!m_context.state().activePinned || !pinned ||
        m_context.layoutOf(picture, displays).withOtherWindows().geometryMatches(*pinned, driftTolerance)) {
        return;
    }
    m_context.gate.afterPass([this, pinned, displays] {
        // What the user has requested meanwhile takes precedence.
        if (!m_context.gate.isRestoring() && !m_context.state().isPinPausedForUser()) {
            m_context.log("didWake: pinned layout drifted, restoring");
            m_runner.perform({.layout = *pinned, .displays = displays, .reason = "pinned enforcement"});
        }
    });
}

} // namespace vantrel

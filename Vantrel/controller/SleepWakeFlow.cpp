#include "Vantrel/controller/SleepWakeFlow.h"

#include "VantrelCore/windows/AXPermission.h"

namespace vantrel {

namespace {

// In points; a window that is off by more makes a pinned layout count as drifted.
constexpr double driftTolerance = 2;

} // namespace

void SleepWakeFlow::willSleep() {
    m_context.isAsleep = true;
    m_context.snapshotsSuspended = true;
    m_context.log("willSleep: snapshots suspended");
    m_missedWake = m_context.ports.mainQueue.after(longestFallingAsleep, [this] { handleWake(); });
}

void SleepWakeFlow::handleWake() {
    m_missedWake.reset();
    m_context.isAsleep = false;
    ++m_context.deskEpoch;
    m_context.log("didWake: checking pinned layout after settle");
    lookAfterSettling();
}

void SleepWakeFlow::sessionLocked() {
    m_context.isLocked = true;
    m_context.snapshotsSuspended = true;
    m_context.log("session locked: snapshots suspended");
}

void SleepWakeFlow::sessionUnlocked() {
    m_context.isLocked = false;
    m_context.log("session unlocked: checking pinned layout after settle");
    lookAfterSettling();
}

void SleepWakeFlow::lookAfterSettling() {
    ++m_context.resumeEpoch;
    m_check = m_context.ports.mainQueue.after(m_context.settings.settleDelay() + wakeDelay,
                                              [this, epoch = m_context.resumeEpoch] {
                                                  // A newer display change handles the desk itself. If the
                                                  // user is still away, the check runs on their return.
                                                  if (epoch == m_context.resumeEpoch && !m_context.isAway()) {
                                                      checkAfterWake();
                                                      m_context.scheduleSnapshotResume(0);
                                                  }
                                              });
}

void SleepWakeFlow::checkAfterWake() {
    if (m_context.axWorkInFlight()) {
        m_context.afterPass([this, epoch = m_context.resumeEpoch] {
            if (epoch == m_context.resumeEpoch && !m_context.isAway()) {
                checkAfterWake();
            }
        });
        return;
    }
    if (!m_context.state().activePinned || m_context.state().isPinPausedForUser() ||
        !m_context.state().enabled || !m_context.entitledToRun() || m_context.restoreInFlight ||
        !AXPermission::isGranted(m_context.ports.desk) || !m_context.isDeskCurrent()) {
        return;
    }
    const auto displays = m_context.currentDisplays();
    m_context.runPass(
        WorkPriority::utility,
        [scope = m_context.captureScope(displays), ports = m_context.ports] {
            return DeskCapture::picture(ports.desk, ports.clock, scope);
        },
        [this, displays, epoch = m_context.resumeEpoch](const std::optional<DeskCapture::Picture>& picture) {
            if (picture && epoch == m_context.resumeEpoch && m_context.isDeskCurrent()) {
                restoreIfDrifted(*picture, displays);
            }
        });
}

void SleepWakeFlow::restoreIfDrifted(const DeskCapture::Picture& picture,
                                     const std::vector<DisplayInfo>& displays) {
    const auto pinned = m_context.layoutToRestore();
    if (!m_context.state().activePinned || !pinned ||
        m_context.layoutOf(picture, displays).geometryMatches(*pinned, driftTolerance)) {
        return;
    }
    m_context.afterPass([this, pinned, displays] {
        // What the user has requested meanwhile takes precedence.
        if (!m_context.restoreInFlight && !m_context.state().isPinPausedForUser()) {
            m_context.log("didWake: pinned layout drifted, restoring");
            m_runner.perform({.layout = *pinned, .displays = displays, .reason = "pinned enforcement"});
        }
    });
}

} // namespace vantrel

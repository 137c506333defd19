#include "Vantrel/controller/DeskGate.h"

#include <algorithm>

namespace vantrel {

void DeskGate::displaysBeganChanging() {
    m_isLearningSuspended = true;
    m_areDisplaysChanging = true;
    ++m_now.m_resumeEpoch;
    ++m_now.m_deskEpoch;
}

void DeskGate::fallAsleep() {
    m_isAsleep = true;
    m_isLearningSuspended = true;
}

void DeskGate::wakeUp() {
    m_isAsleep = false;
    ++m_now.m_resumeEpoch;
    ++m_now.m_deskEpoch;
}

void DeskGate::lockSession() {
    m_isLocked = true;
    m_isLearningSuspended = true;
}

void DeskGate::unlockSession() {
    m_isLocked = false;
    ++m_now.m_resumeEpoch;
}

void DeskGate::resumeLearningAfter(double seconds) {
    const double time = m_clock.monotonicSeconds();
    m_resumeDue = std::max(m_resumeDue, time + seconds);
    m_resume = m_mainQueue.after(m_resumeDue - time, [this, since = now()] {
        // The settling of the displays, or the user's return, resumes learning instead.
        if (isUndisturbed(since) && !m_areDisplaysChanging && !isAway()) {
            m_isLearningSuspended = false;
        }
    });
}

void DeskGate::suspendLearningFor(double seconds) {
    m_isLearningSuspended = true;
    resumeLearningAfter(seconds);
}

void DeskGate::beginRestore() {
    m_isRestoring = true;
    noteWindowsMoved();
}

void DeskGate::endPass() {
    m_isPassUnderWay = false;
    ErrorBoundary::run("controller", m_log, onPassEnded);
    for (const auto& work : std::exchange(m_afterPass, {})) {
        ErrorBoundary::run("controller", m_log, work);
    }
}

} // namespace vantrel

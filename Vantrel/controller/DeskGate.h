// Decides when the desk may be captured and its windows moved, and whether earlier work has become stale.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/MainQueue.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vantrel {

// Lives on the main thread.
class DeskGate {
public:
    // A point in the desk's history. Whoever starts work takes one and asks the gate later what has changed.
    class Moment {
        friend class DeskGate;
        std::int64_t m_resumeEpoch = 0;
        std::int64_t m_deskEpoch = 0;
        std::int64_t m_mutationEpoch = 0;
        std::int64_t m_learningEpoch = 0;
    };

    // `log` receives a line when waiting work throws.
    DeskGate(MainQueue& mainQueue, Clock& clock, ErrorBoundary::Log log)
        : m_mainQueue(mainQueue), m_clock(clock), m_log(std::move(log)) {}

    [[nodiscard]] Moment now() const { return m_now; }
    // No display change has begun and the user has not returned, so that nobody else checks the desk.
    [[nodiscard]] bool isUndisturbed(const Moment& since) const {
        return since.m_resumeEpoch == m_now.m_resumeEpoch;
    }
    // No display change has begun and the machine has not woken up, so windows are where they were placed.
    [[nodiscard]] bool isSameDesk(const Moment& since) const {
        return since.m_deskEpoch == m_now.m_deskEpoch;
    }
    // No restore has begun or ended, so a capture still shows the desk.
    [[nodiscard]] bool isUnmoved(const Moment& since) const {
        return since.m_mutationEpoch == m_now.m_mutationEpoch;
    }
    // The user has changed no layout or rule, so a capture has the right name and windows.
    [[nodiscard]] bool isUnedited(const Moment& since) const {
        return since.m_learningEpoch == m_now.m_learningEpoch;
    }
    void noteEdit() { ++m_now.m_learningEpoch; }

    // Display changes, sleep and locked sessions suspend learning; only resumeLearningAfter() resumes it.
    void displaysBeganChanging();
    void displaysSettled() { m_areDisplaysChanging = false; }
    [[nodiscard]] bool areDisplaysChanging() const { return m_areDisplaysChanging; }
    void fallAsleep();
    void wakeUp();
    void lockSession();
    void unlockSession();
    [[nodiscard]] bool isAsleep() const { return m_isAsleep; }
    [[nodiscard]] bool isAway() const { return m_isAsleep || m_isLocked; }

    [[nodiscard]] bool isLearningSuspended() const { return m_isLearningSuspended; }
    // Resumes learning after `seconds`, or later if an earlier call said so: waking up does not cut short the
    // wait after a display change. Has no effect if the desk is disturbed before, or if by then the displays
    // are changing or the user is away.
    void resumeLearningAfter(double seconds);

    // Suspends learning for at least `seconds`, for instance while window managers may be moving windows.
    void suspendLearningFor(double seconds);

    // A restore is running. Nothing else moves or captures windows meanwhile.
    void beginRestore();
    // The restore has stopped moving windows, but its result is still being handled.
    void noteWindowsMoved() { ++m_now.m_mutationEpoch; }
    void endRestore() { m_isRestoring = false; }
    [[nodiscard]] bool isRestoring() const { return m_isRestoring; }

    // A capture or another pass over the windows is running; only one runs at a time.
    void beginPass() { m_isPassUnderWay = true; }
    void endPass();
    [[nodiscard]] bool isPassUnderWay() const { return m_isPassUnderWay; }
    // Called when a pass has ended. Set by MoveScheduler, which lets the next move begin.
    std::function<void()> onPassEnded = [] {};
    // Runs `work` once when the current pass has ended, after onPassEnded.
    void afterPass(std::function<void()> work) { m_afterPass.push_back(std::move(work)); }

    // Neither a restore nor a pass is running.
    [[nodiscard]] bool isIdle() const { return !m_isRestoring && !m_isPassUnderWay; }
    // The desk may be captured to learn from it.
    [[nodiscard]] bool mayCapture() const { return !m_isLearningSuspended && isIdle(); }

private:
    MainQueue& m_mainQueue;
    Clock& m_clock;
    ErrorBoundary::Log m_log;
    Moment m_now;
    bool m_isLearningSuspended = false;
    bool m_areDisplaysChanging = false;
    bool m_isAsleep = false;
    bool m_isLocked = false;
    bool m_isRestoring = false;
    bool m_isPassUnderWay = false;
    std::vector<std::function<void()>> m_afterPass;
    std::unique_ptr<ScheduledWork> m_resume;
    // On the monotonic clock, in seconds.
    double m_resumeDue = 0;
};

} // namespace vantrel

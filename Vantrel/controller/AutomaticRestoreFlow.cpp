#include "Vantrel/controller/AutomaticRestoreFlow.h"

#include "VantrelCore/windows/AXPermission.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

// A window manager that has just started may not have listed its windows yet. In seconds.
constexpr double retryDelays[] = {1, 3, 7};

bool hasFoundWindows(const RestoreReport& report) {
    return std::ranges::any_of(report.items,
                               [](const RestoreReport::Item& item) { return item.move.has_value(); });
}

} // namespace

bool AutomaticRestoreFlow::canMoveWindows() {
    return AXPermission::isGranted(m_context.ports.desk);
}

void AutomaticRestoreFlow::displaysBeganChanging() {
    ++m_desk;
    m_missed.reset();
    m_outlineTimer.reset();
    m_retry.reset();
}

void AutomaticRestoreFlow::displaysSettled(const std::string& reconnected) {
    displaysBeganChanging();
    const auto layout = wantedLayout();
    if (!layout) {
        return;
    }
    if (!canMoveWindows()) {
        miss(reconnected);
        return;
    }
    perform(*layout, reconnected);
    if (m_context.gate.isAway()) {
        // A lock screen may have kept windows from being found or moved.
        miss(reconnected);
    }
}

std::optional<Layout> AutomaticRestoreFlow::wantedLayout() {
    if (!m_context.settings.autoRestore() || !m_context.state().enabled || !m_context.entitledToRun()) {
        return std::nullopt;
    }
    auto layout = m_context.layoutToRestore();
    return layout && !layout->windows.empty() ? std::move(layout) : std::nullopt;
}

void AutomaticRestoreFlow::perform(const Layout& layout, const std::string& reconnected) {
    m_runner.perform({.layout = layout,
                      .displays = m_context.state().displays,
                      .reason = reconnected.empty() ? "display change" : reconnected,
                      .trigger = RestoreTrigger::automatic,
                      .announcement = Announcement::announce,
                      .announcedCause = reconnected,
                      .isCheck = m_missed.has_value()},
                     {.done = [this, desk = m_desk, reconnected](const RestoreOutcome& outcome) {
                         if (desk == m_desk) {
                             ended(reconnected, outcome);
                         }
                     }});
}

void AutomaticRestoreFlow::ended(const std::string& reconnected, const RestoreOutcome& outcome) {
    using Kind = RestoreOutcome::Kind;
    const bool isFinished = outcome.kind == Kind::finished;
    const bool hasFailed =
        isFinished ? outcome.report.failedCount() > 0 : outcome.kind == Kind::needsPermission;
    if (hasFailed && !canMoveWindows()) {
        miss(reconnected);
    } else if (m_missed && m_missed->isBeingMadeUpFor) {
        const std::size_t attempts = m_missed->vainAttempts++;
        if (!isFinished || hasFoundWindows(outcome.report) || attempts == std::size(retryDelays)) {
            m_missed.reset();
            return;
        }
        m_missed->isBeingMadeUpFor = false;
        m_retry = m_context.ports.mainQueue.after(retryDelays[attempts], [this] { makeUp(); });
    }
}

void AutomaticRestoreFlow::restored(const RestoreRequest& request) {
    if (request.trigger == RestoreTrigger::manual) {
        m_missed.reset();
    }
}

void AutomaticRestoreFlow::miss(const std::string& reconnected) {
    m_missed = Missed{.reconnected = reconnected};
    if (m_context.gate.isAway()) {
        m_context.log("restore: will be made up for when the user returns");
    }
    if (!canMoveWindows()) {
        m_context.log("restore: will be made up for when windows can be moved");
        onUnableToMove();
        noteOutlinesLater();
    }
}

void AutomaticRestoreFlow::noteOutlinesLater() {
    m_outlineTimer = m_context.ports.mainQueue.after(restlessTime, [this] {
        readOutlines([this](const Outlines& outlines) {
            if (m_missed && !canMoveWindows()) {
                m_missed->outlines = outlines;
            }
        });
    });
}

void AutomaticRestoreFlow::readOutlines(std::function<void(const Outlines&)> done) {
    m_context.inBackground(
        WorkPriority::userInitiated, [&desk = m_context.ports.desk] { return desk.outlines(); },
        [this, desk = m_desk, done = std::move(done)](const Outlines& outlines) {
            if (desk == m_desk) {
                done(outlines);
            }
        });
}

void AutomaticRestoreFlow::makeUp() {
    if (!m_missed || m_missed->isBeingMadeUpFor || m_context.gate.isAway() || !canMoveWindows()) {
        return;
    }
    if (m_missed->outlines) {
        readOutlines([this](const Outlines& outlines) { makeUpUnlessMoved(outlines); });
    } else {
        makeUpUnlessMoved(std::nullopt);
    }
}

void AutomaticRestoreFlow::makeUpUnlessMoved(const Outlines& outlines) {
    using MissedRestore::Verdict;
    if (!m_missed || m_missed->isBeingMadeUpFor) {
        return;
    }
    const Verdict verdict = MissedRestore::decide({.isSameDesk = m_context.isDeskCurrent(),
                                                   .isAway = m_context.gate.isAway(),
                                                   .canMoveWindows = canMoveWindows(),
                                                   .before = m_missed->outlines,
                                                   .now = outlines});
    if (verdict == Verdict::wait) {
        return;
    }
    const auto layout = wantedLayout();
    if (verdict == Verdict::drop || !layout) {
        m_context.log("restore: not made up for, because windows or displays have changed since");
        m_missed.reset();
        return;
    }
    m_context.log("restore: making up for the one missed after the display change");
    m_missed->isBeingMadeUpFor = true;
    m_context.gate.suspendLearningFor(restlessTime);
    perform(*layout, m_missed->reconnected);
}

} // namespace vantrel

#include "Vantrel/controller/RestoreRunner.h"

#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/windows/RestoreTally.h"
#include "VantrelCore/windows/RuleApplication.h"

#include <utility>

namespace vantrel {

RestoreRunner::RestoreRunner(ControllerContext& context, RestoreHistory& history)
    : m_context(context), m_history(history),
      m_followUp(context, [this](const std::vector<std::size_t>& items) { m_history.addFollowUp(items); }) {
    m_context.gate.onPassEnded = [this] { runPending(); };
}

void RestoreRunner::perform(RestoreRequest request) {
    if (m_context.gate.isRestoring()) {
        m_context.log("restore queued: another restore is in flight");
        queue(std::move(request));
    } else if (m_context.gate.isPassUnderWay()) {
        m_context.log("restore queued: a capture is in flight");
        // The capture may be a follow-up, which this restore ends.
        abandonMoves();
        queue(std::move(request));
    } else {
        start(std::move(request));
    }
}

void RestoreRunner::queue(RestoreRequest request) {
    if (const auto replaced = std::exchange(m_pending, std::move(request))) {
        replaced->tell({.kind = RestoreOutcome::Kind::superseded, .report = {}});
    }
}

void RestoreRunner::abandonMoves() {
    m_followUp.end();
    m_context.gate.revokePermit();
}

void RestoreRunner::start(RestoreRequest request) {
    using Kind = RestoreOutcome::Kind;
    const bool isOfThisDesk = request.layout.configID == m_context.state().configID;
    const auto hindrance = isOfThisDesk ? m_context.hindranceToMoving() : Kind::displaysChanging;
    if (hindrance) {
        const RestoreOutcome outcome{.kind = *hindrance, .report = {}};
        m_context.log(hindrance == Kind::displaysChanging ? "restore dropped: the displays have changed"
                                                          : "restore dropped: " + outcome.text());
        m_context.refreshStatus();
        announceFailure(request, outcome);
        request.tell(outcome);
        return;
    }
    if (request.prepare) {
        request.prepare(request);
    }
    abandonMoves();
    const bool doesSizes = m_context.settings.restoreSizes();
    RestorePass::Task task{
        .layout = request.layout,
        .trigger = request.trigger,
        .unhides = request.unhides,
        .hidesAllBut = request.hidesAllBut,
        .scene = request.scene,
        .known = {},
        .identities = m_context.notes.find(request.layout),
        .reach = request.purpose == RestorePurpose::restore ? DeskCapture::Reach::every
                                                            : DeskCapture::Reach::visible,
        .options = {.sizes = doesSizes ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave,
                    .stubbornBundleIDs = m_history.stubbornBundleIDs(),
                    .restoreLast = RuleApplication::restoreLastBundleIDs(m_context.store.rules())},
        .scope = {},
        .permit = m_context.gate.issuePermit()};
    if (request.purpose == RestorePurpose::undo) {
        task.known = request.windows;
    }
    task.options.raising =
        request.raising == RestoreEngine::Raising::leave && request.purpose == RestorePurpose::restore
            ? RestoreEngine::Raising::amongMoved
            : request.raising;
    task.scope = m_context.captureScope(request.displays);
    const auto count = static_cast<std::int64_t>(request.layout.windows.size());
    const bool isAnnounced = request.announcement == Announcement::announce && !request.isCheck;
    const auto cause = request.announcedCause;
    m_context.inBackground(
        WorkPriority::userInitiated,
        [task = std::move(task), ports = m_context.ports] {
            return RestorePass::run(task, ports.desk, ports.workspace, ports.clock);
        },
        [this, request = std::move(request)](std::optional<RestorePass::Result> result) {
            finish(request, std::move(result));
        });
    // From here on finish() is guaranteed to be called.
    m_context.gate.beginRestore();
    m_context.showPhase({Phase::Restoring{count}});
    if (isAnnounced) {
        m_context.announce(HUD::Restoring{cause});
    }
}

void RestoreRunner::finish(const RestoreRequest& request, std::optional<RestorePass::Result> result) {
    m_context.gate.noteWindowsMoved();
    const bool isDone = m_context.guarded([&] {
        if (!result) {
            giveUp(request, RestoreOutcome::Kind::failed);
        } else if (result->isAbandoned) {
            endAbandoned(request, *result);
        } else {
            conclude(request, *result);
        }
    });
    if (!isDone) {
        m_context.gate.endRestore();
    }
    runPending();
    if (!m_context.gate.isRestoring()) {
        m_context.onDeskArranged();
    }
}

void RestoreRunner::conclude(const RestoreRequest& request, RestorePass::Result& result) {
    const bool isTakenUp = m_context.guarded([&] {
        onFinished(request, result);
        if (request.finished) {
            request.finished(result);
        }
    });
    if (!isTakenUp) {
        giveUp(request, RestoreOutcome::Kind::failed);
        return;
    }
    if (request.purpose != RestorePurpose::undo) {
        m_context.notes.note(request.layout, result.report);
    }
    m_context.normalFrames.remember(request.layout, result.report);
    if (request.purpose == RestorePurpose::restore &&
        request.layout.layoutName == m_context.state().activeLayoutName) {
        m_context.strays.note(request.layout, result.report);
    }
    m_context.onNoted();
    m_context.log(ControllerText::restoreReport(result.report));
    // Callers waiting for the outcome need not wait for the files.
    request.tell({.kind = RestoreOutcome::Kind::finished, .report = result.report});
    if (request.isCheck && result.changedNothing) {
        m_context.gate.endRestore();
        m_context.showPhase({});
        m_context.refreshStatus();
    } else {
        m_context.guarded([&] { m_history.record(request, result); });
        publishReport(request, result.report);
        m_context.gate.endRestore();
    }
    if (request.trigger == RestoreTrigger::automatic) {
        m_followUp.begin(std::move(result.kept));
    }
}

void RestoreRunner::endAbandoned(const RestoreRequest& request, const RestorePass::Result& result) {
    m_context.log("restore abandoned: the displays changed meanwhile");
    if (result.hasMovedWindows) {
        m_context.guarded([&] {
            onFinished(request, result);
            m_history.record(request, result);
        });
    }
    giveUp(request, RestoreOutcome::Kind::displaysChanging);
}

void RestoreRunner::giveUp(const RestoreRequest& request, RestoreOutcome::Kind why) {
    m_context.gate.endRestore();
    m_context.showPhase({});
    m_context.refreshStatus();
    const RestoreOutcome outcome{.kind = why, .report = {}};
    announceFailure(request, outcome);
    request.tell(outcome);
}

void RestoreRunner::announceFailure(const RestoreRequest& request, const RestoreOutcome& outcome) const {
    // An automatic restore begins again when the displays have settled.
    if (request.announcement == Announcement::announce && request.trigger == RestoreTrigger::manual) {
        m_context.announce(HUD::Refused{outcome.text()});
    }
}

void RestoreRunner::publishReport(const RestoreRequest& request, const RestoreReport& report) {
    const auto restored = static_cast<std::int64_t>(report.restoredCount());
    m_context.publisher.publish<HistoryTopic>([&](auto& history) {
        history.lastRestore =
            PublishedState::LastRestore{.date = m_context.ports.clock.now(),
                                        .configID = request.layout.configID,
                                        .reason = request.reason,
                                        .report = report,
                                        .isAutomatic = request.trigger == RestoreTrigger::automatic};
    });
    m_context.showPhase({Phase::Restored{restored, report.elapsed}});
    m_context.refreshStatus();
    // Scenes make their own announcement.
    if (request.announcement == Announcement::announce && !request.scene) {
        const bool isUndo = request.purpose == RestorePurpose::undo;
        m_context.announce(
            HUD::Done{RestoreTally::of(report), report.elapsed, isUndo ? "Undone" : request.announcedCause});
    }
}

void RestoreRunner::runPending() {
    if (m_pending && m_context.gate.isIdle()) {
        start(*std::exchange(m_pending, std::nullopt));
    }
}

} // namespace vantrel

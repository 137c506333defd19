#include "Vantrel/controller/RestoreRunner.h"

#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/windows/RestoreTally.h"
#include "VantrelCore/windows/RuleApplication.h"

#include <utility>

namespace vantrel {

RestoreRunner::RestoreRunner(ControllerContext& context, RestoreHistory& history)
    : m_context(context), m_history(history),
      m_followUp(context, [this](const std::vector<std::size_t>& items) { m_history.addFollowUp(items); }) {
    m_context.moves.onAbandoned = [this] { m_followUp.end(); };
}

void RestoreRunner::perform(RestoreRequest request, RestoreCallbacks callbacks) {
    if (m_context.gate.isRestoring()) {
        m_context.log("restore queued: another restore is in flight");
    } else if (m_context.gate.isPassUnderWay()) {
        m_context.log("restore queued: a capture is in flight");
    }
    const auto job = std::make_shared<Job>(std::move(request), std::move(callbacks));
    m_context.moves.request(
        {.start =
             [this, job] {
                 const bool hasStarted = m_context.guarded([&] { start(job); });
                 if (!hasStarted && !m_context.gate.isRestoring()) {
                     job->callbacks.tell({.kind = RestoreOutcome::Kind::failed, .report = {}});
                 }
             },
         .replaced =
             [job] { job->callbacks.tell({.kind = RestoreOutcome::Kind::superseded, .report = {}}); }});
}

void RestoreRunner::start(const std::shared_ptr<Job>& job) {
    using Kind = RestoreOutcome::Kind;
    RestoreRequest& request = job->request;
    const bool isOfThisDesk = request.layout.configID == m_context.state().configID;
    const auto hindrance = isOfThisDesk ? m_context.hindranceToMoving() : Kind::displaysChanging;
    if (hindrance) {
        const RestoreOutcome outcome{.kind = *hindrance, .report = {}};
        m_context.log(hindrance == Kind::displaysChanging ? "restore dropped: the displays have changed"
                                                          : "restore dropped: " + outcome.text());
        m_context.refreshStatus();
        announceFailure(request, outcome);
        job->callbacks.tell(outcome);
        return;
    }
    if (job->callbacks.prepare) {
        job->callbacks.prepare(request, job->callbacks);
    }
    m_followUp.end();
    const auto count = static_cast<std::int64_t>(request.layout.windows.size());
    m_context.inBackground(
        WorkPriority::userInitiated,
        [task = task(request), ports = m_context.ports] {
            return RestorePass::run(task, ports.desk, ports.workspace, ports.clock);
        },
        [this, job](std::optional<RestorePass::Result> result) { finish(*job, std::move(result)); });
    // From here on finish() is guaranteed to be called.
    m_context.gate.beginRestore();
    m_context.showPhase({Phase::Restoring{count}});
    if (request.announcement == Announcement::announce && !request.isCheck) {
        m_context.announce(HUD::Restoring{request.announcedCause});
    }
}

RestorePass::Task RestoreRunner::task(const RestoreRequest& request) {
    using RestoreEngine::Raising, RestoreEngine::Sizes;
    const bool isRestore = request.purpose == RestorePurpose::restore;
    return {.request = request,
            .identities = m_context.notes.find(request.layout),
            .reach = isRestore ? DeskCapture::Reach::every : DeskCapture::Reach::visible,
            .options = {.sizes = m_context.settings.restoreSizes() ? Sizes::restore : Sizes::leave,
                        .raising = isRestore && request.raising == Raising::leave ? Raising::amongMoved
                                                                                  : request.raising,
                        .stubbornBundleIDs = m_history.stubbornBundleIDs(),
                        .restoreLast = RuleApplication::restoreLastBundleIDs(m_context.store.rules())},
            .scope = m_context.captureScope(request.displays),
            .permit = m_context.moves.newPermit()};
}

void RestoreRunner::finish(const Job& job, std::optional<RestorePass::Result> result) {
    m_context.gate.noteWindowsMoved();
    const bool isDone = m_context.guarded([&] {
        if (!result) {
            giveUp(job, RestoreOutcome::Kind::failed);
        } else if (m_context.hasLostPermission()) {
            endAbandoned(job, *result, RestoreOutcome::Kind::needsPermission);
        } else if (result->isAbandoned) {
            endAbandoned(job, *result, RestoreOutcome::Kind::displaysChanging);
        } else {
            conclude(job, *result);
        }
    });
    if (!isDone) {
        m_context.gate.endRestore();
    }
    m_context.moves.startNext();
    if (m_context.gate.isPassUnderWay()) {
        m_context.gate.afterPass(m_context.onDeskArranged);
    } else if (!m_context.gate.isRestoring()) {
        m_context.onDeskArranged();
    }
}

void RestoreRunner::conclude(const Job& job, RestorePass::Result& result) {
    const bool isTakenUp = m_context.guarded([&] {
        onFinished(job.request, job.callbacks, result);
        if (job.callbacks.finished) {
            job.callbacks.finished(result);
        }
    });
    if (!isTakenUp) {
        giveUp(job, RestoreOutcome::Kind::failed);
        return;
    }
    const RestoreRequest& request = job.request;
    if (request.purpose != RestorePurpose::undo) {
        m_context.notes.note(request.layout, result.report);
    }
    m_context.normalFrames.remember(request.layout, result.report);
    if (request.purpose == RestorePurpose::restore &&
        request.layout.layoutName == m_context.state().activeLayoutName) {
        m_context.strays.note(request.layout, result.report, result.unreached);
    }
    m_context.onNoted();
    m_context.log(ControllerText::restoreReport(result.report));
    // Callers waiting for the outcome need not wait for the files.
    job.callbacks.tell({.kind = RestoreOutcome::Kind::finished, .report = result.report});
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

void RestoreRunner::endAbandoned(const Job& job, const RestorePass::Result& result,
                                 RestoreOutcome::Kind why) {
    m_context.log(why == RestoreOutcome::Kind::needsPermission
                      ? "restore abandoned: the permission was revoked meanwhile"
                      : "restore abandoned: the displays changed meanwhile");
    if (result.hasMovedWindows) {
        m_context.guarded([&] {
            onFinished(job.request, job.callbacks, result);
            m_history.record(job.request, result);
        });
    }
    giveUp(job, why);
}

void RestoreRunner::giveUp(const Job& job, RestoreOutcome::Kind why) {
    m_context.gate.endRestore();
    m_context.showPhase({});
    m_context.refreshStatus();
    const RestoreOutcome outcome{.kind = why, .report = {}};
    announceFailure(job.request, outcome);
    job.callbacks.tell(outcome);
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
        history.lastRestore = LastRestore{.date = m_context.ports.clock.now(),
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

} // namespace vantrel

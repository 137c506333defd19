#include "Vantrel/commands/Intents.h"

#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel {

namespace {

void reportNothingHappened(const Intents::Done& done, std::string message) {
    done(std::unexpected(VantrelIntentError{VantrelIntentError::Kind::nothingHappened, std::move(message)}));
}

// Reports the result of a restore once it has ended. If it did not begin, the message is `refusal`, or the
// outcome's text if that is empty.
RestoreOutcome::Done reportOutcome(const Intents::Done& done,
                                   std::function<std::string(std::int64_t)> success, std::string refusal) {
    return [done, success = std::move(success), refusal = std::move(refusal)](const RestoreOutcome& outcome) {
        if (outcome.kind == RestoreOutcome::Kind::finished) {
            done(success(static_cast<std::int64_t>(outcome.report.restoredCount())));
        } else if (refusal.empty() || outcome.kind == RestoreOutcome::Kind::superseded) {
            reportNothingHappened(done, outcome.text());
        } else {
            reportNothingHappened(done, refusal);
        }
    };
}

} // namespace

AppController* Intents::controller(const Done& done) const {
    AppController* const running = m_shared();
    if (running == nullptr) {
        done(std::unexpected(
            VantrelIntentError{VantrelIntentError::Kind::notRunning, tr(vantrelIsNotRunning)}));
    }
    return running;
}

void Intents::restoreNow(const Done& done) {
    if (AppController* const running = controller(done)) {
        running->restoreNow(
            RestoreSource::shortcut,
            reportOutcome(
                done,
                [](std::int64_t count) {
                    return count == 0 ? tr("No windows put back.")
                                      : trn("{} window put back.", "{} windows put back.", count);
                },
                tr("Nothing moved. This desk has no saved layout yet, or Vantrel is paused, missing "
                   "Accessibility permission, or past its trial.")));
    }
}

void Intents::applyScene(const std::string& sceneID, const Done& done) {
    if (AppController* const running = controller(done)) {
        const auto& scenes = running->published().scenes;
        const auto scene = std::ranges::find(scenes, sceneID, &Scene::id);
        if (scene == scenes.end()) {
            reportNothingHappened(done, tr("That scene no longer exists."));
            return;
        }
        // A copy, because applying the scene changes the published scenes.
        running->applyScene(
            Scene(*scene), "Shortcuts",
            reportOutcome(
                done, [name = scene->name](std::int64_t) { return trf("Applied \"{}\".", name); },
                tr("Nothing moved. Vantrel may be paused, missing Accessibility permission, or past its "
                   "trial.")));
    }
}

void Intents::saveScene(const std::string& name, const Done& done) {
    if (AppController* const running = controller(done)) {
        running->scenes().saveCurrentAsScene(name, [done](const SceneSaveOutcome& outcome) {
            if (outcome.isSaved()) {
                done(trf("Saved the desk as \"{}\".", outcome.scene ? outcome.scene->name : ""));
            } else {
                reportNothingHappened(done, outcome.text());
            }
        });
    }
}

void Intents::stash(const Done& done) {
    if (AppController* const running = controller(done)) {
        running->stashes().stashOrBringBack(
            {.stashed =
                 [done](const StashFlow::Result& stash) {
                     if (stash) {
                         done(stash->windowCount == 0
                                  ? tr("No windows put aside.")
                                  : trn("{} window put aside.", "{} windows put aside.", stash->windowCount));
                     } else {
                         reportNothingHappened(done, SaveOutcome{.kind = stash.error()}.text());
                     }
                 },
             .broughtBack = reportOutcome(
                 done,
                 [](std::int64_t count) {
                     return count == 0 ? tr("No windows brought back.")
                                       : trn("{} window brought back.", "{} windows brought back.", count);
                 },
                 "")});
    }
}

void Intents::undoLastRestore(const Done& done) {
    if (AppController* const running = controller(done)) {
        running->undoLastRestore(reportOutcome(
            done, [](std::int64_t) { return std::string(tr("Undid the last restore.")); },
            tr("There is nothing to undo.")));
    }
}

std::vector<SceneEntity> Intents::scenes() const {
    std::vector<SceneEntity> entities;
    if (AppController* const running = m_shared()) {
        for (const auto& scene : running->published().scenes) {
            entities.push_back({scene.id, scene.name});
        }
    }
    return entities;
}

} // namespace vantrel

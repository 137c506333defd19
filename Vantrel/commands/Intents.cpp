#include "Vantrel/commands/Intents.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel {

namespace {

void tellNothingHappened(const Intents::Done& done, std::string message) {
    done(std::unexpected(VantrelIntentError{VantrelIntentError::Kind::nothingHappened, std::move(message)}));
}

} // namespace

AppController* Intents::controller(const Done& done) const {
    AppController* const running = m_shared();
    if (running == nullptr) {
        done(std::unexpected(
            VantrelIntentError{VantrelIntentError::Kind::notRunning, std::string(vantrelIsNotRunning)}));
    }
    return running;
}

void Intents::restoreNow(const Done& done) {
    if (AppController* const running = controller(done)) {
        if (running->restoreNow(RestoreSource::shortcut)) {
            done("Windows are going back to their places.");
        } else {
            tellNothingHappened(done,
                                "Nothing moved. This desk has no saved layout yet, or Vantrel is paused, "
                                "missing Accessibility permission, or past its trial.");
        }
    }
}

void Intents::applyScene(const std::string& sceneID, const Done& done) {
    if (AppController* const running = controller(done)) {
        const auto& scenes = running->published().scenes;
        const auto scene = std::ranges::find(scenes, sceneID, &Scene::id);
        if (scene == scenes.end()) {
            tellNothingHappened(done, "That scene no longer exists.");
        } else if (running->applyScene(*scene, "Shortcuts")) {
            done(fmt::format("Applying \"{}\".", scene->name));
        } else {
            tellNothingHappened(done,
                                "Nothing moved. Vantrel may be paused, missing Accessibility permission, "
                                "or past its trial.");
        }
    }
}

void Intents::saveScene(const std::string& name, const Done& done) {
    if (AppController* const running = controller(done)) {
        running->scenes().saveCurrentAsScene(name, [done](const SceneSaveOutcome& outcome) {
            if (outcome.isSaved()) {
                done(fmt::format("Saved the desk as \"{}\".", outcome.scene ? outcome.scene->name : ""));
            } else {
                tellNothingHappened(done, outcome.text());
            }
        });
    }
}

void Intents::stash(const Done& done) {
    if (AppController* const running = controller(done)) {
        const bool isBroughtBack = running->published().activeStash() != nullptr;
        running->stashes().stashOrBringBack();
        done(isBroughtBack ? "Bringing the desk back." : "Putting the desk aside.");
    }
}

void Intents::undoLastRestore(const Done& done) {
    if (AppController* const running = controller(done)) {
        if (running->undoLastRestore()) {
            done("Undoing the last restore.");
        } else {
            tellNothingHappened(done, "There is nothing to undo.");
        }
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

std::vector<SceneEntity> Intents::scenes(const std::vector<std::string>& ids) const {
    const auto existing = scenes();
    std::vector<SceneEntity> found;
    for (const auto& id : ids) {
        if (const auto entity = std::ranges::find(existing, id, &SceneEntity::id); entity != existing.end()) {
            found.push_back(*entity);
        }
    }
    return found;
}

} // namespace vantrel

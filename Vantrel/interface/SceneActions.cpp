#include "Vantrel/interface/SceneActions.h"

#include <algorithm>

namespace vantrel {

namespace {

using Problem = SceneActions::Problem;

// For everything except typed names.
constexpr SceneActions::Words words = SceneProblems::panelText;

Problem textOf(const std::optional<SceneProblem>& problem, SceneActions::Words worded) {
    return problem ? Problem(std::string(worded(*problem))) : std::nullopt;
}

Problem problemOf(const SceneFlow::EditResult& result, SceneActions::Words worded) {
    return result ? std::nullopt : Problem(std::string(worded(result.error())));
}

std::optional<Scene> sceneOf(const AppController& controller, const std::string& id) {
    const auto& scenes = controller.published().scenes;
    const auto found = std::ranges::find(scenes, id, &Scene::id);
    return found == scenes.end() ? std::nullopt : std::optional(*found);
}

} // namespace

RestoreOutcome::Done tellRefusal(const std::weak_ptr<bool>& alive, const SceneActions::Tell& tell) {
    return [alive, tell](const RestoreOutcome& outcome) {
        using Kind = RestoreOutcome::Kind;
        if (!alive.expired() && outcome.kind != Kind::finished && outcome.kind != Kind::superseded) {
            tell(outcome.text(), true);
        }
    };
}

SceneActions SceneActions::of(AppController& controller, const std::weak_ptr<bool>& alive, const Tell& tell,
                              Words names) {
    SceneActions actions;
    actions.apply = [&controller, alive, tell](const std::string& id) {
        if (const auto found = sceneOf(controller, id)) {
            controller.applyScene(*found, std::nullopt, tellRefusal(alive, tell));
        }
    };
    actions.rename = [&controller, names](const std::string& id, const std::string& name) {
        return problemOf(controller.scenes().rename(id, name), names);
    };
    const auto save = [&controller, alive, tell](const std::string& name) {
        controller.scenes().saveCurrentAsScene(name, [alive, tell](const SceneSaveOutcome& outcome) {
            if (!alive.expired()) {
                tell(outcome.kind == SceneSaveOutcome::Kind::refused ? std::string(words(outcome.problem))
                                                                     : outcome.text(),
                     !outcome.isSaved());
            }
        });
    };
    actions.save = save;
    actions.update = [&controller, save](const std::string& id) {
        if (const auto found = sceneOf(controller, id)) {
            save(found->name);
        }
    };
    const auto removed = std::make_shared<std::optional<RecentDeletions::ID>>();
    actions.remove = [&controller, removed](const std::string& id) {
        const auto result = controller.scenes().deleteScene(id);
        if (result) {
            *removed = controller.deletions().newest();
        }
        return problemOf(result, words);
    };
    actions.putBack = [&controller, removed, tell] {
        if (*removed) {
            if (const auto back = controller.deletions().putBack(*removed); !back) {
                tell(back.error(), true);
            }
            removed->reset();
        }
    };
    const auto tellProblem = [tell](const Problem& problem) {
        if (problem) {
            tell(*problem, true);
        }
    };
    actions.duplicate = [&controller, tellProblem](const std::string& id) {
        tellProblem(problemOf(controller.scenes().duplicate(id), words));
    };
    actions.move = [&controller, tellProblem](const std::string& id, std::size_t position) {
        tellProblem(problemOf(controller.scenes().move(id, position), words));
    };
    actions.setPinned = [&controller, tellProblem](const std::string& id, bool isPinned) {
        tellProblem(problemOf(controller.scenes().setPinned(isPinned, id), words));
    };
    actions.setOpensMissingApps = [&controller, tellProblem](const std::string& id, bool opens) {
        tellProblem(problemOf(controller.scenes().setOpensMissingApps(opens, id), words));
    };
    actions.setHotkey = [&controller](const std::string& id, std::optional<HotKeyCombo> combo) -> Problem {
        const auto stored = controller.setHotkey(HotKeySurface::scene(id), combo);
        return stored ? std::nullopt : Problem(stored.error());
    };
    actions.problemWithName = [&controller, names](const std::string& name) {
        return textOf(controller.scenes().problemWithNewName(name), names);
    };
    actions.problemWithRename = [&controller, names](const std::string& id, const std::string& name) {
        return textOf(controller.scenes().problemWithRename(id, name), names);
    };
    return actions;
}

} // namespace vantrel

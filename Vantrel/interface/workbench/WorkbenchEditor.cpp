// What the workbench does for the scene editor.
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/workbench/Workbench.h"
#include "Vantrel/interface/workbench/scenes/ScenesPage.h"
#include "VantrelCore/scenes/SceneDeskComparison.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

SceneEditorActions::Problem problem(const SceneFlow::EditResult& result) {
    return result ? std::nullopt : SceneEditorActions::Problem(SceneProblems::panelText(result.error()));
}

} // namespace

std::vector<EditorApplication> Workbench::applications() {
    std::map<std::string, EditorApplication> known;
    if (!m_installed) {
        m_installed.emplace();
        if (m_services.installedApplications) {
            *m_installed = m_services.installedApplications();
        }
    }
    for (const auto& [bundleID, name] : *m_installed) {
        known[bundleID] = {bundleID, name};
    }
    for (const AppFacts& facts : m_controller.rules().facts()) {
        known.try_emplace(facts.bundleID, EditorApplication{facts.bundleID, facts.appName});
    }
    if (const auto& open = m_controller.published().liveWindows) {
        for (const DeskWindow& window : *open) {
            auto& application = known[window.bundleID];
            application.bundleID = window.bundleID;
            application.name = application.name.empty() ? window.appName : application.name;
            ++application.windows;
        }
    }
    std::vector<EditorApplication> all;
    for (auto& [bundleID, application] : known) {
        if (!bundleID.empty() && !application.name.empty()) {
            all.push_back(std::move(application));
        }
    }
    return all;
}

SceneEditor* Workbench::sceneEditor(const std::string& id, std::function<void()> close, QWidget* parent) {
    const auto& scenes = m_controller.published().scenes;
    const auto found = std::ranges::find(scenes, id, &Scene::id);
    if (found == scenes.end()) {
        return nullptr;
    }
    SceneEditor::Start start{.scene = *found, .applications = applications()};
    for (const AppFacts& facts : m_controller.rules().facts()) {
        start.limits[facts.bundleID] = facts.sizes;
    }
    if (auto kept = m_unsaved.extract(id)) {
        start.draft = std::move(kept.mapped());
    }
    return new SceneEditor(m_looks, std::move(start), editorActions(*found, std::move(close)), parent);
}

SceneEditorActions Workbench::editorActions(const Scene& scene, std::function<void()> close) {
    const auto refusal =
        tellRefusal(m_alive, [this](const std::string& text, bool isProblem) { say(text, isProblem); });
    SceneEditorActions actions;
    actions.save = [this](const Scene& edited) { return problem(m_controller.scenes().saveEdited(edited)); };
    actions.saveAsNew = [this](const Scene& edited, const std::string& name) {
        return problem(m_controller.scenes().saveEditedAs(edited, name));
    };
    actions.problemWithName = [this](const std::string& name) -> SceneEditorActions::Problem {
        const auto found = m_controller.scenes().problemWithNewName(name);
        return found ? SceneEditorActions::Problem(SceneProblems::nameFieldText(*found)) : std::nullopt;
    };
    actions.tryOut = [this, refusal](const Scene& edited) {
        Scene tried = edited;
        tried.id.clear();
        return m_controller.applyScene(tried, std::nullopt, refusal);
    };
    actions.goBack = [this, refusal] { m_controller.undoLastRestore(refusal); };
    actions.captureDesk = [this, desk = scene.configID](const auto& done) {
        if (SceneDeskComparison::isCrossDesk(desk, m_controller.published().configID)) {
            done(std::unexpected(std::string(
                tr("This scene belongs to another desk. Its windows cannot be taken from this one."))));
            return;
        }
        m_controller.scenes().captureDesk([done](const std::optional<Layout>& layout) {
            if (layout) {
                done(layout->windows);
            } else {
                done(std::unexpected(
                    std::string(tr("The windows of the desk cannot be read now. Nothing was changed."))));
            }
        });
    };
    actions.wallpapers = m_services.wallpapers;
    actions.wallpapers.recents = [this] { return Settings(m_controller.defaults()).wallpaperRecents(); };
    actions.unpin = [this, id = scene.id] {
        if (const auto refused = problem(m_controller.scenes().setPinned(false, id))) {
            say(*refused, true);
        }
    };
    actions.close = std::move(close);
    // Both may be called after the workbench has closed.
    const std::weak_ptr<bool> alive = m_alive;
    actions.kept = [this, alive](SceneDraft draft) {
        if (!alive.expired()) {
            const Scene kept = draft.scene();
            m_unsaved.insert_or_assign(kept.id, std::move(draft));
            say(trf("Your changes to {} are kept until you save or discard them.", kept.name), false);
        }
    };
    actions.discarded = [this, alive](SceneDraft draft) {
        if (alive.expired() || !m_window) {
            return;
        }
        const Scene discarded = draft.scene();
        m_window->notices().offerUndo(qt(trf("Your changes to {} were discarded.", discarded.name)),
                                      [this, draft = std::move(draft), id = discarded.id] {
                                          m_unsaved.insert_or_assign(id, draft);
                                          edit(id);
                                      });
    };
    return actions;
}

void Workbench::edit(const std::string& id) {
    m_window->choose(WorkbenchTab::scenes);
    static_cast<ScenesPage*>(m_window->page())->edit(id);
}

} // namespace vantrel

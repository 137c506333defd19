// The scene editor: applications on the left, the canvas, and what is known of the selected box on the right.
// It edits a draft; the stored scene changes only with Save.
#pragma once

#include "Vantrel/interface/editor/EditorApplications.h"
#include "Vantrel/interface/editor/EditorCanvas.h"
#include "Vantrel/interface/editor/EditorFoot.h"
#include "Vantrel/interface/editor/EditorInspector.h"
#include "Vantrel/interface/editor/EditorToolbar.h"
#include "Vantrel/interface/lists/ListRowsView.h"
#include "Vantrel/interface/wallpaper/WallpaperPicker.h"

#include <QWidget>

#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QLineEdit;

namespace vantrel {

// What the editor asks of the program. A problem is a sentence.
struct SceneEditorActions {
    using Problem = std::optional<std::string>;
    // The windows of the desk as they are, or why they cannot be had.
    using Captured = std::expected<std::vector<WindowRecord>, std::string>;

    // Stores the edited parts of the scene.
    std::function<Problem(const Scene& edited)> save = [](const auto&) { return std::nullopt; };
    // Stores them as a new scene of the same desk.
    std::function<Problem(const Scene& edited, const std::string& name)> saveAsNew =
        [](const auto&, const auto&) { return std::nullopt; };
    std::function<Problem(const std::string& name)> problemWithName = [](const auto&) {
        return std::nullopt;
    };
    // Arranges the desk like the scene, without storing it, and says whether that began; and back.
    std::function<bool(const Scene& edited)> tryOut = [](const auto&) { return true; };
    std::function<void()> goBack = [] {};
    std::function<void(std::function<void(const Captured&)>)> captureDesk = [](const auto&) {};
    std::function<void()> unpin = [] {};
    WallpaperServices wallpapers{};
    // Called when the user leaves the editor.
    std::function<void()> close = [] {};
    // Called before it, or when the editor is destroyed, with changes that were not saved.
    std::function<void(SceneDraft draft)> discarded = [](const auto&) {};
    std::function<void(SceneDraft draft)> kept = [](const auto&) {};
};

class SceneEditor final : public QWidget {
public:
    struct Start {
        Scene scene;
        // Changes that were kept when the editor was last left.
        std::optional<SceneDraft> draft{};
        SceneDraft::Limits limits{};
        std::vector<EditorApplication> applications{};
    };

    // `looks` outlives the editor.
    SceneEditor(ApplicationLooks& looks, Start start, SceneEditorActions actions, QWidget* parent = nullptr);
    ~SceneEditor() override;
    SceneEditor(const SceneEditor&) = delete;
    SceneEditor& operator=(const SceneEditor&) = delete;

    // The scene as it is stored now; none when it was deleted. A change elsewhere is said, and both versions
    // are offered.
    void storedIsNow(const std::optional<Scene>& stored);
    void showApplications(std::vector<EditorApplication> applications);
    // Puts the cursor into the search field of the applications.
    void focusSearch();

    [[nodiscard]] SceneDraft& draft() { return *m_draft; }
    [[nodiscard]] EditorCanvas& canvas() { return *m_canvas; }
    [[nodiscard]] EditorInspector& inspector() { return *m_inspector; }
    [[nodiscard]] ListRowsView& applications() { return *m_list; }
    [[nodiscard]] EditorFoot& foot() { return *m_foot; }
    // Null while it is closed.
    [[nodiscard]] WallpaperPicker* wallpaperPicker() { return m_picker; }
    // In the place of canvas, applications and inspector.
    void openWallpapers();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] EditorToolbar::Actions toolbarActions();
    [[nodiscard]] QWidget* applicationSide(ApplicationLooks& looks);
    [[nodiscard]] QWidget* inspectorSide(ApplicationLooks& looks);
    void connectCanvas();
    [[nodiscard]] bool isReadOnly() const { return m_draft->scene().isPinned(); }
    std::vector<SceneDraft::BoxID> apply(const SceneDraft::Command& command);
    [[nodiscard]] WindowRecord newSlot(const std::string& bundleID) const;
    void addSlot(const std::string& bundleID);
    void undo();
    void redo();
    void takeAll();
    void takeSelected();
    void tryOrGoBack();
    void save();
    void discard();
    void replaceDraft(const Scene& stored);
    void refresh();
    void showWallpapers();
    void closeWallpapers();
    void showFoundApplications();
    void showToolbar();
    // What has to be decided, else the sentence, else what the canvas says.
    void showFoot(const QString& sentence = {}, EditorFoot::Tone tone = EditorFoot::Tone::plain);
    [[nodiscard]] int points(double length) const;

    SceneEditorActions m_actions;
    SceneDraft::Limits m_limits;
    std::vector<EditorApplication> m_applications;
    std::unique_ptr<SceneDraft> m_draft;
    // What is stored, if it has changed since it was opened or saved.
    std::optional<Scene> m_conflict;
    bool m_isDeleted = false;
    bool m_isTrying = false;
    // The changes were saved or discarded.
    bool m_isSettled = false;

    EditorToolbar* m_toolbar = nullptr;
    // Everything below the toolbar, unless the wallpapers are chosen.
    QWidget* m_work = nullptr;
    WallpaperPicker* m_picker = nullptr;
    QWidget* m_applicationSide = nullptr;
    QLineEdit* m_search = nullptr;
    ListRowsView* m_list = nullptr;
    EditorCanvas* m_canvas = nullptr;
    QWidget* m_inspectorSide = nullptr;
    EditorInspector* m_inspector = nullptr;
    EditorFoot* m_foot = nullptr;
};

} // namespace vantrel

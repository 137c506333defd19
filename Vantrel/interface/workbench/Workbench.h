// Opens and closes the workbench, keeps it in step with what the controller publishes, and offers to undo
// what was deleted, wherever that was done.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/editor/SceneEditor.h"
#include "Vantrel/interface/wallpaper/WallpaperServices.h"
#include "Vantrel/interface/workbench/WorkbenchWindow.h"
#include "Vantrel/interface/workbench/settings/SettingsActions.h"

#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

// Lives on the main thread; the controller outlives it. The window exists only while it is shown; the live
// windows are captured only while a tab shows them.
class Workbench {
public:
    struct Services {
        // Outlives the workbench; null draws every icon.
        ApplicationIcons* icons = nullptr;
        // Outlives the workbench; null for no pictures of windows.
        WindowPictures* windowPictures = nullptr;
        HotKeyRecorder::KeyReader keyCode = [](const QKeyEvent&) { return std::nullopt; };
        SettingsActions::Services settings{};
        // Identifiers and names of the installed applications; may be null.
        std::function<std::vector<std::pair<std::string, std::string>>()> installedApplications{};
        // Without `recents`, which are set here.
        WallpaperServices wallpapers{};
        // Called when the window opens and when it has closed.
        std::function<void(bool isOpen)> openChanged = [](bool) {};
    };

    Workbench(AppController& controller, Services services);
    ~Workbench();
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    // Opens the window or raises it, at this tab or at the one it was closed with. False when there is no
    // such tab.
    bool open(std::optional<WorkbenchTab> tab = {});
    void close();
    [[nodiscard]] static bool has(WorkbenchTab tab);
    // Null while it is closed.
    [[nodiscard]] WorkbenchWindow* window() const { return m_window.get(); }

private:
    void make();
    void refresh(Topics changed);
    // Watches the live windows while the visible tab shows them.
    void watch();
    void offerUndo();
    void say(const std::string& text, bool isProblem);
    void remember();
    void closed();
    [[nodiscard]] WorkbenchTab rememberedTab();
    [[nodiscard]] QSize rememberedSize();
    [[nodiscard]] WorkbenchPage* scenesPage(QWidget* parent);
    [[nodiscard]] SceneEditor* sceneEditor(const std::string& id, std::function<void()> close,
                                           QWidget* parent);
    [[nodiscard]] SceneEditorActions editorActions(const Scene& scene, std::function<void()> close);
    [[nodiscard]] std::vector<EditorApplication> applications();
    // Opens the scene in the editor, with what was kept of its changes.
    void edit(const std::string& id);
    [[nodiscard]] WorkbenchPage* desksPage(QWidget* parent);
    [[nodiscard]] WorkbenchPage* historyPage(QWidget* parent);

    AppController& m_controller;
    Services m_services;
    ApplicationLooks m_looks;
    std::unique_ptr<WorkbenchWindow> m_window;
    std::optional<Publisher::ObserverID> m_observer;
    std::shared_ptr<void> m_live;
    // Read when first needed; none while the window is closed.
    std::optional<std::vector<std::pair<std::string, std::string>>> m_installed;
    // What was changed in the editor and neither saved nor discarded, by the scene's id.
    std::map<std::string, SceneDraft> m_unsaved;
    // The newest deletion that was offered, or was there before the window opened.
    std::optional<RecentDeletions::ID> m_offered;
    // Refreshes relative times while the window is open.
    QTimer m_aging;
    // Expires with this object, for restores that end later.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel

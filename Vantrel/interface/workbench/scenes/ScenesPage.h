// The tab Scenes: the rail on the left, the chosen scene in the large drawing with everything about it.
#pragma once

#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/lists/ListRowsView.h"
#include "Vantrel/interface/workbench/WorkbenchPage.h"
#include "Vantrel/interface/workbench/scenes/ScenesActions.h"

#include <string>

class QLineEdit;
class QScrollArea;

namespace vantrel {

class SceneDetailView;
class WallpaperPicker;

class ScenesPage final : public WorkbenchPage {
public:
    // `looks` outlives the page.
    ScenesPage(ApplicationLooks& looks, ScenesActions actions, QWidget* parent = nullptr);

    void show(const PublishedState& state, Topics changed) override;
    using WorkbenchPage::show;
    void focusSearch() override;
    [[nodiscard]] QLineEdit* searchField() const override { return m_search; }
    void focusFirst() override;
    [[nodiscard]] bool wantsLiveWindows() const override { return true; }
    [[nodiscard]] bool wantsWholeWindow() const override { return m_editor != nullptr; }
    [[nodiscard]] std::vector<std::pair<QString, QString>> keys() const override;

    [[nodiscard]] const ScenesContent& content() const { return m_content; }
    [[nodiscard]] ListRowsView& rail() { return *m_rail; }
    [[nodiscard]] SceneDetailView& detail() { return *m_detail; }
    // Null while no scene is edited.
    [[nodiscard]] SceneEditor* editor() const { return m_editor; }
    // Opens the editor in place of everything else.
    void edit(const std::string& id);
    // Null while it is closed.
    [[nodiscard]] WallpaperPicker* wallpaperPicker() { return m_picker; }
    // In the place of the chosen scene.
    void openWallpaperPicker();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* railSide();
    [[nodiscard]] QWidget* emptyHint(ApplicationLooks& looks);
    void refresh();
    void leaveEditor();
    // The scene to show when the chosen one has gone: the one that took its place in the rail.
    [[nodiscard]] std::string neighbourOfChosen(const ScenesContent& content) const;
    // Moves a scene in front of another one, or to the end of its desk's.
    void reorder(const std::string& id, const std::string& before);
    void nameEdited();
    void saveScene();
    void createEmpty();
    void showMenu(QPoint place);
    void remove();
    void showWallpapers();
    void closeWallpaperPicker();

    ScenesActions m_actions;
    const PublishedState* m_state = nullptr;
    ScenesContent m_content;
    // Empty before the first state.
    std::string m_chosen;
    QWidget* m_side = nullptr;
    SceneEditor* m_editor = nullptr;
    // The scene in the editor.
    std::string m_edited;
    QLineEdit* m_search = nullptr;
    ListRowsView* m_rail = nullptr;
    QLineEdit* m_name = nullptr;
    SymbolButton* m_createEmpty = nullptr;
    Label* m_nameProblem = nullptr;
    Label* m_room = nullptr;
    QScrollArea* m_scroll = nullptr;
    SceneDetailView* m_detail = nullptr;
    WallpaperPicker* m_picker = nullptr;
    // The scene that it is open for.
    std::string m_pickerScene;
    QWidget* m_empty = nullptr;
    // What a first scene would keep.
    DeskView* m_emptyDrawing = nullptr;
    Label* m_emptyTitle = nullptr;
    Label* m_emptyText = nullptr;
};

} // namespace vantrel

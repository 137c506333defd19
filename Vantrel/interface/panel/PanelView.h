// The panel: shows the desk at a glance and offers every action on it.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Switch.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/panel/LayoutRow.h"
#include "Vantrel/interface/panel/PanelActions.h"
#include "Vantrel/interface/panel/SceneRowView.h"

#include <QTimer>
#include <QWidget>

#include <map>
#include <string>
#include <vector>

class QBoxLayout;
class QLineEdit;
class QScrollArea;

namespace vantrel {

class PanelView final : public QWidget {
public:
    // For a font of 13 pixels.
    static constexpr double width = 380;

    PanelView(ApplicationLooks& looks, PanelActions actions, QWidget* parent = nullptr);

    void show(const PanelContent& content);
    using QWidget::show;
    [[nodiscard]] const PanelContent& content() const { return m_content; }

    // Says in the last line what became of a request.
    void tell(const PanelContent::Result& result);
    // Puts the cursor into the field for a new scene.
    void startSavingScene();
    // Gives the focus to the thing most people came for, if it can be done.
    void focusMainButton();
    [[nodiscard]] std::vector<SceneRowView*> sceneRows() const;
    [[nodiscard]] DeskView& drawing() { return *m_drawing; }

    // The height at which nothing scrolls.
    [[nodiscard]] int fullHeight() const;
    // Makes room for a scroll bar.
    void setScrolling(bool isScrolling);
    // Called when the full height may have changed.
    std::function<void()> onHeightChanged = [] {};

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] QWidget* header();
    [[nodiscard]] QWidget* body();
    [[nodiscard]] QWidget* footer();
    void addMessages(QBoxLayout& column);
    void addButtons(QBoxLayout& column);
    void addLayouts(QBoxLayout& column);
    void addScenes(QBoxLayout& column);
    void addResult(QBoxLayout& column);
    // Elided while nobody edits it.
    void showDeskName();
    void showMessages();
    void showButtons();
    void showLayouts();
    void showScenes();
    void showResult();
    void fillScenes(QBoxLayout& column, const std::vector<PanelContent::SceneRow>& rows);
    void offerUndo(const std::string& name, std::function<void()> undo);
    void sceneNameEdited();
    [[nodiscard]] int points(double length) const;

    ApplicationLooks& m_looks;
    PanelActions m_actions;
    PanelContent m_content;
    // What tell() has said; shown until the next change.
    std::optional<PanelContent::Result> m_told;

    QWidget* m_header = nullptr;
    QWidget* m_footer = nullptr;
    QWidget* m_symbol = nullptr;
    QLineEdit* m_deskName = nullptr;
    Label* m_phase = nullptr;
    Label* m_deskProblem = nullptr;
    Switch* m_switch = nullptr;
    QScrollArea* m_scroll = nullptr;
    QWidget* m_body = nullptr;
    QWidget* m_messages = nullptr;
    DeskView* m_drawing = nullptr;
    QWidget* m_emptyHint = nullptr;
    ActionButton* m_restore = nullptr;
    ActionButton* m_save = nullptr;
    ActionButton* m_stash = nullptr;
    ActionButton* m_undo = nullptr;
    QWidget* m_secondary = nullptr;
    ActionButton* m_remember = nullptr;
    LayoutRow* m_layouts = nullptr;
    QWidget* m_sceneList = nullptr;
    Label* m_scenesHint = nullptr;
    QWidget* m_undoLine = nullptr;
    Label* m_undoText = nullptr;
    QTimer m_undoEnds;
    // Brings back what the undo line names.
    std::function<void()> m_undoDeletion = [] {};
    ActionButton* m_others = nullptr;
    QWidget* m_otherList = nullptr;
    QLineEdit* m_sceneField = nullptr;
    QAction* m_sceneSave = nullptr;
    Label* m_sceneProblem = nullptr;
    ActionButton* m_result = nullptr;
    QWidget* m_resultLine = nullptr;
    std::map<std::string, SceneRowView*> m_rows;
};

} // namespace vantrel

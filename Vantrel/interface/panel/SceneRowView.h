// One scene in the panel: a click applies it; shortcut, pin and menu show on hover and on focus.
#pragma once

#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/panel/PanelActions.h"

#include <QAbstractButton>
#include <QWidget>

class QLineEdit;

namespace vantrel {

class SceneRowView final : public QWidget {
public:
    // `actions` outlives the row.
    SceneRowView(const PanelContent::SceneRow& row, const PanelActions& actions, QWidget* parent = nullptr);

    void show(const PanelContent::SceneRow& row);
    using QWidget::show;
    [[nodiscard]] const PanelContent::SceneRow& row() const { return m_row; }

    void startRenaming();
    // As if the pointer were on it.
    void setHighlighted(bool isHighlighted);
    [[nodiscard]] HotKeyRecorder& recorder() { return *m_recorder; }

    // Called when the scene was removed.
    std::function<void(const std::string& name)> onRemoved = [](const auto&) {};

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    class Line;

    void build();
    void showMenu();
    void endRenaming(bool isAccepted);
    void showProblem(const std::string& problem);
    void showControls();
    [[nodiscard]] bool isBusy() const;

    PanelContent::SceneRow m_row;
    const PanelActions& m_actions;
    Line* m_line = nullptr;
    Label* m_name = nullptr;
    Label* m_detail = nullptr;
    QLineEdit* m_field = nullptr;
    QWidget* m_pinned = nullptr;
    HotKeyRecorder* m_recorder = nullptr;
    SymbolButton* m_pin = nullptr;
    SymbolButton* m_more = nullptr;
    Label* m_problem = nullptr;
    bool m_isHighlighted = false;
    bool m_hasMenu = false;
};

} // namespace vantrel

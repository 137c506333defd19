// The line above the canvas: the scene's name, undo and redo, and what becomes of the changes.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/SymbolButton.h"

#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

class QAction;
class QBoxLayout;
class QLineEdit;

namespace vantrel {

class EditorToolbar final : public QWidget {
public:
    struct Content {
        std::string name;
        std::size_t changes = 0;
        bool isDirty = false;
        bool canUndo = false;
        bool canRedo = false;
        // A pinned or deleted scene cannot be saved; a pinned one cannot be changed either.
        bool canSave = true;
        bool canChange = true;
        bool hasSelection = false;
        bool isTrying = false;

        bool operator==(const Content&) const = default;
    };

    struct Actions {
        std::function<void()> back, undo, redo, takeAll, takeSelected, tryOrGoBack, discard, save;
        // Why the name is not possible; while it is typed, and when it is used.
        std::function<std::optional<std::string>(const std::string&)> problemWithName, saveAsNew;
    };

    explicit EditorToolbar(Actions actions, QWidget* parent = nullptr);

    void show(const Content& content);
    using QWidget::show;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    class Sign;

    [[nodiscard]] QWidget* buttons();
    [[nodiscard]] QWidget* nameLine();
    void askName(bool asks);
    // In two rows where one is too long.
    void fold();
    void saveAsNew();
    [[nodiscard]] int points(double length) const;

    Actions m_actions;
    QBoxLayout* m_rows = nullptr;
    Sign* m_sign = nullptr;
    Label* m_name = nullptr;
    Label* m_changes = nullptr;
    SymbolButton* m_undo = nullptr;
    SymbolButton* m_redo = nullptr;
    ActionButton* m_take = nullptr;
    QAction* m_takeSelected = nullptr;
    ActionButton* m_try = nullptr;
    ActionButton* m_discard = nullptr;
    ActionButton* m_saveAs = nullptr;
    ActionButton* m_save = nullptr;
    QWidget* m_nameLine = nullptr;
    QLineEdit* m_newName = nullptr;
    Label* m_problem = nullptr;
};

} // namespace vantrel

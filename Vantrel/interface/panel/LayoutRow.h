// The panel's row for this desk's layouts: switches between them, pins, saves the desk as another one,
// renames and deletes.
#pragma once

#include "Vantrel/interface/panel/PanelActions.h"

#include <QWidget>

class QComboBox;
class QLineEdit;

namespace vantrel {

class Label;
class SymbolButton;

class LayoutRow final : public QWidget {
public:
    // `actions` outlives the row.
    LayoutRow(const PanelActions& actions, QWidget* parent);

    void setLayouts(const PanelContent::Layouts& layouts);

    // Called when a layout has been deleted.
    std::function<void(const std::string& name)> onRemoved = [](const auto&) {};

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    enum class Typing : std::uint8_t { nothing, newLayout, newName };

    // Shows the field, or hides it if it already asks for that.
    void ask(Typing what);
    void endTyping();
    [[nodiscard]] std::string typedName() const;
    [[nodiscard]] PanelActions::Problem problemWithTyped() const;
    void accept();
    void remove();
    void showProblem(const PanelActions::Problem& problem);

    const PanelActions& m_actions;
    std::string m_active;
    Typing m_typing = Typing::nothing;
    QComboBox* m_box = nullptr;
    SymbolButton* m_pin = nullptr;
    QLineEdit* m_name = nullptr;
    Label* m_problem = nullptr;
};

} // namespace vantrel

// The chosen desk: its name, layouts and stashes, the drawing, and what restoring it now would do.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/NameField.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/lists/ListRowsView.h"
#include "Vantrel/interface/workbench/desks/DesksActions.h"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>

class QBoxLayout;
class QComboBox;
class QLineEdit;

namespace vantrel {

class DeskDetailView final : public QWidget {
public:
    // `looks` and `actions` outlive the view.
    DeskDetailView(ApplicationLooks& looks, const DesksActions& actions, QWidget* parent = nullptr);

    void show(const DesksContent::Detail& detail, bool showsInPlace);
    using QWidget::show;
    void startRenaming() { m_name->startEditing(); }
    void showMenu(QPoint place);

    // Called when another layout of an absent desk is to be shown.
    std::function<void(const std::string& layout)> onLayout = [](const auto&) {};
    // Called when what is in place is to be shown, or no longer.
    std::function<void()> onInPlace = [] {};

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Plate;

    // Why the field for a layout's name is open.
    enum class Naming : std::uint8_t { none, saveAs, rename };

    [[nodiscard]] QBoxLayout* header();
    [[nodiscard]] QWidget* layoutField();
    [[nodiscard]] QWidget* drawingSide();
    [[nodiscard]] QWidget* previewSide();
    void showLayouts();
    void showStashes();
    void showPreview(bool showsInPlace);
    void startNaming(Naming naming);
    [[nodiscard]] DesksActions::Problem problemWithLayoutName() const;
    void finishNaming();
    [[nodiscard]] int points(double length) const;

    ApplicationLooks& m_looks;
    const DesksActions& m_actions;
    // None before the first desk is shown.
    std::optional<DesksContent::Detail> m_content;
    Naming m_naming = Naming::none;

    NameField* m_name = nullptr;
    Label* m_subtitle = nullptr;
    QWidget* m_layoutRow = nullptr;
    QComboBox* m_layouts = nullptr;
    SymbolButton* m_pin = nullptr;
    SymbolButton* m_more = nullptr;
    QWidget* m_layoutField = nullptr;
    QLineEdit* m_layoutName = nullptr;
    Label* m_layoutProblem = nullptr;
    QBoxLayout* m_sides = nullptr;
    DeskView* m_drawing = nullptr;
    QWidget* m_stashes = nullptr;
    QWidget* m_previewSide = nullptr;
    Label* m_previewTitle = nullptr;
    ActionButton* m_restore = nullptr;
    Label* m_previewText = nullptr;
    ListRowsView* m_lines = nullptr;
    ActionButton* m_inPlace = nullptr;
    Label* m_unremembered = nullptr;
};

} // namespace vantrel

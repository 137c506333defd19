// What is known of one selected box, with numbers and names that can be typed.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Switch.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/desk/ApplicationLooks.h"
#include "VantrelCore/studio/SceneDraft.h"

#include <QWidget>

#include <array>
#include <functional>
#include <string>

class QAbstractButton;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;

namespace vantrel {

class BoxInspector final : public QWidget {
public:
    using BoxID = SceneDraft::BoxID;

    // `looks` outlives the inspector.
    explicit BoxInspector(ApplicationLooks& looks, QWidget* parent = nullptr);

    // The draft outlives the inspector or the next call.
    void show(const SceneDraft& draft, BoxID box);
    using QWidget::show;
    // The frame that the box has while it is dragged.
    void showFrame(const Rect& frame);

    // Called with every change of the user's.
    std::function<void(const SceneDraft::Command&)> onCommand = [](const auto&) {};

private:
    [[nodiscard]] QLayout* heading();
    [[nodiscard]] QLayout* numbers();
    [[nodiscard]] QLayout* zones();
    [[nodiscard]] QLayout* order();
    void typed(std::size_t number);
    void moveToDisplay(int index);
    void place(const Rect& frame);
    void showProblem();
    [[nodiscard]] const WindowRecord& record() const;
    // Null without displays.
    [[nodiscard]] const DisplayInfo* home(const Rect& frame) const;
    // x, y, width and height in the chosen unit, relative to the display.
    [[nodiscard]] std::array<double, 4> values(const Rect& frame) const;
    [[nodiscard]] int points(double length) const;

    ApplicationLooks& m_looks;
    // None before the first show().
    const SceneDraft* m_draft = nullptr;
    BoxID m_shown = 0;
    bool m_isShowing = false;
    // Why a typed frame is not the one the box has, as long as it has this one.
    std::string m_refusal;
    Rect m_refused;

    QLabel* m_icon = nullptr;
    Label* m_name = nullptr;
    Label* m_order = nullptr;
    QLineEdit* m_title = nullptr;
    QComboBox* m_display = nullptr;
    QAbstractButton* m_shares = nullptr;
    std::array<QDoubleSpinBox*, 4> m_numbers{};
    Label* m_fact = nullptr;
    Label* m_problem = nullptr;
    ActionButton* m_forward = nullptr;
    ActionButton* m_backward = nullptr;
    Switch* m_isSlot = nullptr;
};

} // namespace vantrel

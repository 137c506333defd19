// One application in the tab Rules: what was learned about it, and its rule.
#pragma once

#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/desk/ApplicationLooks.h"
#include "Vantrel/interface/workbench/rules/DisplayPicker.h"
#include "Vantrel/interface/workbench/rules/RulesContent.h"

#include <QCheckBox>
#include <QComboBox>
#include <QWidget>

#include <functional>
#include <vector>

namespace vantrel {

class RuleRowView final : public QWidget {
public:
    // The widths of the columns that a row shares with the head of the table.
    struct Columns {
        int choice = 0;
        int last = 0;
    };

    // `looks` outlives the row.
    RuleRowView(ApplicationLooks& looks, Columns columns, QWidget* parent = nullptr);

    void show(const RulesContent::Row& row, const std::vector<DisplayInfo>& displays);
    using QWidget::show;
    [[nodiscard]] const RulesContent::Row& row() const { return m_row; }
    [[nodiscard]] DisplayPicker& picker() { return *m_picker; }
    [[nodiscard]] QComboBox& choice() { return *m_choice; }
    [[nodiscard]] QCheckBox& placedLast() { return *m_last; }

    // Called with the row as the user wants it.
    std::function<void(const RulesContent::Row&)> onChanged = [](const auto&) {};

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fillChoices();
    void showStored();
    void chooseDisplay(const std::string& uuid);
    // The drawn displays stand there only where they say something, or where the pointer or the focus is.
    void showPicker();

    ApplicationLooks& m_looks;
    RulesContent::Row m_row;
    std::vector<DisplayInfo> m_displays;
    Label* m_name = nullptr;
    Label* m_learned = nullptr;
    DisplayPicker* m_picker = nullptr;
    QComboBox* m_choice = nullptr;
    QCheckBox* m_last = nullptr;
    bool m_isHovered = false;
};

} // namespace vantrel

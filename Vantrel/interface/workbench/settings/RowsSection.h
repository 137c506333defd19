// A section of the settings made of rows, one below the other.
#pragma once

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/workbench/settings/SettingsSectionView.h"
#include "Vantrel/interface/workbench/settings/ToggleRows.h"

#include <QVBoxLayout>

#include <functional>
#include <string>
#include <utility>

namespace vantrel {

class RowsSection : public SettingsSectionView {
public:
    RowsSection(const SettingsActions& actions, QWidget* parent)
        : SettingsSectionView(parent), m_actions(actions), m_column(new QVBoxLayout(this)) {
        m_column->setContentsMargins(0, 0, 0, 0);
        m_column->setSpacing(0);
    }

    // `text` is translated here.
    static ActionButton* button(const char* text, QWidget* parent, std::function<void()> act) {
        auto* const button = new ActionButton("", ActionButton::Form::plain, parent);
        button->setTexts(qtr(text), "");
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        QObject::connect(button, &QPushButton::clicked, parent, std::move(act));
        return button;
    }

protected:
    [[nodiscard]] const SettingsActions& actions() const { return m_actions; }
    [[nodiscard]] QVBoxLayout& column() { return *m_column; }

    ToggleRows* addToggles() {
        auto* const toggles = new ToggleRows(m_actions, this);
        m_column->addWidget(toggles);
        return toggles;
    }

    SettingRow* addRow(const std::string& title, const std::string& detail) {
        auto* const row = new SettingRow("", this);
        row->setTexts(title, detail);
        m_column->addWidget(row);
        return row;
    }

    // Nothing without an action.
    void addButtonRow(const char* title, const char* detail, const char* text,
                      const std::function<void()>& act) {
        if (act) {
            SettingRow* const row = addRow(vantrel::tr(title), *detail == '\0' ? "" : vantrel::tr(detail));
            row->addControl(button(text, row, act));
        }
    }

private:
    const SettingsActions& m_actions;
    QVBoxLayout* m_column;
};

} // namespace vantrel

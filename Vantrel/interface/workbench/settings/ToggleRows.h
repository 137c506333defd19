// Rows with switches, each of which acts at once.
#pragma once

#include "Vantrel/interface/controls/Switch.h"
#include "Vantrel/interface/workbench/settings/SettingRow.h"
#include "Vantrel/interface/workbench/settings/SettingsActions.h"

#include <QVBoxLayout>
#include <QWidget>

#include <algorithm>
#include <string_view>
#include <vector>

namespace vantrel {

class ToggleRows final : public QWidget {
public:
    // `actions` outlives the rows.
    explicit ToggleRows(const SettingsActions& actions, QWidget* parent = nullptr)
        : QWidget(parent), m_actions(actions), m_column(new QVBoxLayout(this)) {
        m_column->setContentsMargins(0, 0, 0, 0);
        m_column->setSpacing(0);
    }

    void show(const std::vector<SettingsContent::Toggle>& toggles) {
        for (const auto& toggle : toggles) {
            auto found = std::ranges::find(m_rows, toggle.key, &Row::key);
            if (found == m_rows.end()) {
                add(toggle);
                found = m_rows.end() - 1;
            }
            found->isInverted = toggle.isInverted;
            found->row->setTexts(toggle.title, toggle.detail);
            found->control->setChecked(toggle.isOn);
            found->control->setAccessibleName(QString::fromStdString(toggle.title));
            found->control->setAccessibleDescription(QString::fromStdString(toggle.detail));
        }
    }
    using QWidget::show;

    // Null when it is not shown.
    [[nodiscard]] Switch* control(std::string_view key) const {
        const auto found = std::ranges::find(m_rows, key, &Row::key);
        return found == m_rows.end() ? nullptr : found->control;
    }

private:
    struct Row {
        std::string_view key;
        SettingRow* row = nullptr;
        Switch* control = nullptr;
        bool isInverted = false;
    };

    void add(const SettingsContent::Toggle& toggle) {
        auto* const row = new SettingRow("", this);
        auto* const control = new Switch(row);
        row->addControl(control);
        connect(control, &QCheckBox::clicked, this, [this, key = toggle.key](bool isOn) {
            const auto changed = std::ranges::find(m_rows, key, &Row::key);
            const auto problem = m_actions.set(key, isOn != changed->isInverted);
            changed->row->showProblem(problem);
            if (problem) {
                changed->control->setChecked(!isOn);
            }
        });
        m_column->addWidget(row);
        m_rows.push_back(
            {.key = toggle.key, .row = row, .control = control, .isInverted = toggle.isInverted});
    }

    const SettingsActions& m_actions;
    QVBoxLayout* m_column;
    std::vector<Row> m_rows;
};

} // namespace vantrel

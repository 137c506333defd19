// The section Triggers: every trigger with its switch, time and scene, and a line to add one.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Switch.h"
#include "Vantrel/interface/workbench/settings/SettingRow.h"
#include "Vantrel/interface/workbench/settings/SettingsSectionView.h"

#include <string>
#include <vector>

class QComboBox;
class QLineEdit;
class QVBoxLayout;

namespace vantrel {

class TriggersView final : public SettingsSectionView {
public:
    // `actions` outlives the view.
    explicit TriggersView(const SettingsActions& actions, QWidget* parent = nullptr);

    void show(const SettingsContent& content) override;
    using QWidget::show;

    struct Line {
        std::string id;
        SettingRow* row = nullptr;
        // Null for a trigger that does not wait for a time.
        QLineEdit* time = nullptr;
        QComboBox* scene = nullptr;
        Switch* isOn = nullptr;
    };
    [[nodiscard]] const std::vector<Line>& lines() const { return m_lines; }
    [[nodiscard]] QComboBox& newKind() { return *m_kind; }
    [[nodiscard]] QLineEdit& newTime() { return *m_time; }
    [[nodiscard]] ActionButton& addButton() { return *m_add; }
    [[nodiscard]] QString problem() const { return m_new->problem(); }

private:
    void buildNew();
    void add(const SettingsContent::Trigger& trigger);
    void update(Line& line, const SettingsContent::Trigger& trigger);
    void fillScenes(QComboBox& box, const std::string& chosen) const;
    void addTrigger();
    void showNew();

    const SettingsActions& m_actions;
    std::vector<SettingsContent::NamedScene> m_scenes;
    QVBoxLayout* m_list = nullptr;
    Label* m_none = nullptr;
    SettingRow* m_new = nullptr;
    QComboBox* m_kind = nullptr;
    QLineEdit* m_time = nullptr;
    QComboBox* m_scene = nullptr;
    ActionButton* m_add = nullptr;
    std::vector<Line> m_lines;
};

} // namespace vantrel

// The tab Settings: its sections in a list, and the chosen one beside it.
#pragma once

#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/lists/ListRowsView.h"
#include "Vantrel/interface/workbench/WorkbenchPage.h"
#include "Vantrel/interface/workbench/settings/SettingsActions.h"
#include "Vantrel/interface/workbench/settings/SettingsSectionView.h"

#include <map>

class QScrollArea;
class QStackedWidget;

namespace vantrel {

class SettingsPage final : public WorkbenchPage {
public:
    explicit SettingsPage(SettingsActions actions, QWidget* parent = nullptr);

    void show(const PublishedState& state, Topics changed) override;
    using QWidget::show;
    void focusFirst() override;

    void choose(SettingsSection section);
    [[nodiscard]] SettingsSection section() const { return m_section; }
    // Of the chosen section.
    [[nodiscard]] SettingsSectionView* view() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();
    void armQuickSwitcher();

    SettingsActions m_actions;
    const PublishedState* m_state = nullptr;
    SettingsSection m_section = SettingsSection::general;
    bool m_wasArmed = false;
    ListRowsView* m_sections = nullptr;
    Label* m_title = nullptr;
    QStackedWidget* m_stack = nullptr;
    // Made when they are first shown.
    std::map<SettingsSection, QScrollArea*> m_views;
    std::map<SettingsSection, SettingsSectionView*> m_shown;
};

} // namespace vantrel

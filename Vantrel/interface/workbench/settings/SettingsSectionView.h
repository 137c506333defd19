// One section of the settings.
#pragma once

#include "Vantrel/interface/workbench/settings/SettingsActions.h"
#include "Vantrel/interface/workbench/settings/SettingsContent.h"

#include <QWidget>

namespace vantrel {

class SettingsSectionView : public QWidget {
public:
    using QWidget::QWidget;
    using QWidget::show;

    virtual void show(const SettingsContent& content) = 0;
};

namespace SettingsSectionViews {

// `actions` outlives the view.
[[nodiscard]] SettingsSectionView* make(SettingsSection section, const SettingsActions& actions,
                                        QWidget* parent);

[[nodiscard]] SettingsSectionView* general(const SettingsActions& actions, QWidget* parent);
[[nodiscard]] SettingsSectionView* restoring(const SettingsActions& actions, QWidget* parent);
[[nodiscard]] SettingsSectionView* displays(const SettingsActions& actions, QWidget* parent);
[[nodiscard]] SettingsSectionView* privacy(const SettingsActions& actions, QWidget* parent);
[[nodiscard]] SettingsSectionView* license(const SettingsActions& actions, QWidget* parent);
[[nodiscard]] SettingsSectionView* about(const SettingsActions& actions, QWidget* parent);

} // namespace SettingsSectionViews

} // namespace vantrel

// The chosen scene: its name, what can be done with it, the large drawing and the facts.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/NameField.h"
#include "Vantrel/interface/controls/Switch.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/wallpaper/WallpaperFacts.h"
#include "Vantrel/interface/workbench/scenes/ScenesActions.h"

#include <QWidget>

#include <functional>
#include <optional>

class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QLineEdit;

namespace vantrel {

class SceneDetailView final : public QWidget {
public:
    // `looks` and `actions` outlive the view.
    SceneDetailView(ApplicationLooks& looks, const ScenesActions& actions, QWidget* parent = nullptr);

    void show(const ScenesContent::Detail& detail);
    using QWidget::show;
    [[nodiscard]] DeskView& drawing() { return *m_drawing; }
    [[nodiscard]] HotKeyRecorder& recorder() { return *m_recorder; }
    [[nodiscard]] QWidget& wallpaperButton() { return m_wallpapers->button(); }
    void startRenaming() { m_name->startEditing(); }

    // Called when the wallpapers are to be changed.
    std::function<void()> onWallpapers = [] {};
    // Called with a place on the screen when the menu is asked for.
    std::function<void(QPoint place)> onMenu = [](QPoint) {};
    std::function<void()> onEdit = [] {};

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Sign;
    class AppIcons;
    class Swatch;

    [[nodiscard]] QBoxLayout* header();
    [[nodiscard]] QWidget* facts();
    [[nodiscard]] QWidget* timeRow();
    // A row of the facts; returns where its value goes.
    [[nodiscard]] QBoxLayout* fact(QGridLayout& grid, const QString& name);
    void showTriggers();
    void addTime();
    [[nodiscard]] int points(double length) const;

    ApplicationLooks& m_looks;
    const ScenesActions& m_actions;
    // None before the first scene is shown.
    std::optional<ScenesContent::Detail> m_content;

    Sign* m_symbol = nullptr;
    NameField* m_name = nullptr;
    Label* m_subtitle = nullptr;
    SymbolButton* m_more = nullptr;
    ActionButton* m_update = nullptr;
    ActionButton* m_edit = nullptr;
    ActionButton* m_apply = nullptr;
    DeskView* m_drawing = nullptr;
    QBoxLayout* m_columns = nullptr;
    AppIcons* m_apps = nullptr;
    Label* m_windows = nullptr;
    Sign* m_moved = nullptr;
    Label* m_now = nullptr;
    HotKeyRecorder* m_recorder = nullptr;
    Label* m_shortcutProblem = nullptr;
    QBoxLayout* m_triggers = nullptr;
    QWidget* m_triggerList = nullptr;
    ActionButton* m_addTime = nullptr;
    QLineEdit* m_time = nullptr;
    Label* m_timeProblem = nullptr;
    Label* m_lastApplied = nullptr;
    WallpaperFacts* m_wallpapers = nullptr;
    Switch* m_pin = nullptr;
    Label* m_pinText = nullptr;
    QCheckBox* m_opens = nullptr;
    Label* m_opensReason = nullptr;
};

} // namespace vantrel

// The section Shortcuts: a recorder for every command and for the scenes of this desk.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/workbench/settings/SettingRow.h"
#include "Vantrel/interface/workbench/settings/SettingsSectionView.h"

#include <optional>
#include <string>
#include <vector>

class QVBoxLayout;

namespace vantrel {

class ShortcutsView final : public SettingsSectionView {
public:
    // `actions` outlives the view.
    explicit ShortcutsView(const SettingsActions& actions, QWidget* parent = nullptr);

    void show(const SettingsContent& content) override;
    using QWidget::show;

    // Null when it is not shown.
    [[nodiscard]] HotKeyRecorder* recorder(const HotKeySurface& surface) const;
    [[nodiscard]] SettingRow* row(const HotKeySurface& surface) const;

private:
    struct Line {
        HotKeySurface surface;
        SettingRow* row = nullptr;
        HotKeyRecorder* recorder = nullptr;
        SymbolButton* reset = nullptr;
        // What the recorder says is wrong; it is about keys that were just pressed.
        std::string pressed{};
        // What is wrong with the stored one.
        std::string stored{};
    };

    void add(const SettingsContent::Shortcut& shortcut, QVBoxLayout& list);
    void update(Line& line, const SettingsContent::Shortcut& shortcut);
    void showProblem(const Line& line);
    void resetAll();
    [[nodiscard]] Line* find(const HotKeySurface& surface);

    const SettingsActions& m_actions;
    QVBoxLayout* m_fixed = nullptr;
    QVBoxLayout* m_scenes = nullptr;
    Label* m_scenesTitle = nullptr;
    ActionButton* m_resetAll = nullptr;
    std::vector<Line> m_lines;
};

} // namespace vantrel

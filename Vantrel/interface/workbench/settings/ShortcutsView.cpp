#include "Vantrel/interface/workbench/settings/ShortcutsView.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"

#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

namespace {

bool isScene(const HotKeySurface& surface) {
    return surface.kind == HotKeySurface::Kind::scene;
}

} // namespace

ShortcutsView::ShortcutsView(const SettingsActions& actions, QWidget* parent)
    : SettingsSectionView(parent), m_actions(actions) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* const explanation = new Label(Label::Role::second, this);
    explanation->show(qtr("They work in every program, also while Vantrel has no window open."));
    column->addWidget(explanation);
    column->addSpacing(points(12));
    m_fixed = new QVBoxLayout;
    m_fixed->setSpacing(0);
    column->addLayout(m_fixed);
    column->addSpacing(points(16));
    m_resetAll = new ActionButton("undo", ActionButton::Form::plain, this);
    m_resetAll->setTexts(qtr("Reset all to default"), "");
    m_resetAll->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_resetAll, &QPushButton::clicked, this, [this] { resetAll(); });
    column->addWidget(m_resetAll);
    column->addSpacing(points(24));
    m_scenesTitle = new Label(Label::Role::heading, this);
    m_scenesTitle->show(qtr("Scenes on this desk"));
    column->addWidget(m_scenesTitle);
    column->addSpacing(points(4));
    m_scenes = new QVBoxLayout;
    m_scenes->setSpacing(0);
    column->addLayout(m_scenes);
    column->addStretch(1);
}

void ShortcutsView::show(const SettingsContent& content) {
    std::vector<SettingsContent::Shortcut> all = content.shortcuts;
    std::ranges::copy(content.sceneShortcuts, std::back_inserter(all));
    std::erase_if(m_lines, [&](const Line& line) {
        const bool isGone =
            std::ranges::find(all, line.surface, &SettingsContent::Shortcut::surface) == all.end();
        if (isGone) {
            line.row->hide();
            line.row->deleteLater();
        }
        return isGone;
    });
    for (const auto& shortcut : all) {
        if (find(shortcut.surface) == nullptr) {
            add(shortcut, isScene(shortcut.surface) ? *m_scenes : *m_fixed);
        }
        update(*find(shortcut.surface), shortcut);
    }
    m_scenesTitle->setVisible(!content.sceneShortcuts.empty());
    m_resetAll->setEnabled(std::ranges::any_of(content.shortcuts, &SettingsContent::Shortcut::canBeReset));
}

void ShortcutsView::add(const SettingsContent::Shortcut& shortcut, QVBoxLayout& list) {
    const HotKeySurface surface = shortcut.surface;
    auto* const row = new SettingRow(shortcut.symbol, this);
    auto* const recorder = new HotKeyRecorder(
        surface, HotKeyRecording::Place::settings,
        {.keyCode = m_actions.keyCode,
         .taken = m_actions.takenHotKeys,
         .store = [this,
                   surface](std::optional<HotKeyCombo> combo) { return m_actions.setHotkey(surface, combo); },
         .problem =
             [this, surface](const std::string& problem) {
                 if (Line* const line = find(surface)) {
                     line->pressed = problem;
                     showProblem(*line);
                 }
             }},
        row);
    recorder->setProminent(true);
    recorder->setHasKeyCaps(true);
    row->addControl(recorder);
    SymbolButton* reset = nullptr;
    if (!isScene(surface) && surface.kind != HotKeySurface::Kind::undo &&
        surface.kind != HotKeySurface::Kind::quickSwitcher) {
        reset = new SymbolButton("undo", qt(std::string(HotKeyRecording::resetTitle)), 30, row);
        QSizePolicy keepsRoom = reset->sizePolicy();
        keepsRoom.setRetainSizeWhenHidden(true);
        reset->setSizePolicy(keepsRoom);
        connect(reset, &QToolButton::clicked, this, [this, surface] {
            if (Line* const line = find(surface)) {
                line->pressed = m_actions.setHotkey(surface, std::nullopt).value_or("");
                showProblem(*line);
            }
        });
        row->addControl(reset);
    }
    list.addWidget(row);
    m_lines.push_back({.surface = surface, .row = row, .recorder = recorder, .reset = reset});
}

void ShortcutsView::update(Line& line, const SettingsContent::Shortcut& shortcut) {
    line.row->setTexts(shortcut.title, "");
    line.recorder->setTitle(qt(shortcut.title));
    line.recorder->setShortcut(qt(shortcut.keys));
    line.recorder->setRefused(!shortcut.problem.empty());
    line.stored = shortcut.problem;
    if (line.reset != nullptr) {
        line.reset->setVisible(shortcut.canBeReset);
        line.reset->setText(qt(trf("Reset \"{}\" to default", shortcut.title)));
    }
    showProblem(line);
}

void ShortcutsView::showProblem(const Line& line) {
    line.row->showProblem(line.pressed.empty() ? line.stored : line.pressed);
}

void ShortcutsView::resetAll() {
    for (Line& line : m_lines) {
        if (line.reset != nullptr) {
            line.pressed = m_actions.setHotkey(line.surface, std::nullopt).value_or("");
            showProblem(line);
        }
    }
}

ShortcutsView::Line* ShortcutsView::find(const HotKeySurface& surface) {
    const auto found = std::ranges::find(m_lines, surface, &Line::surface);
    return found == m_lines.end() ? nullptr : &*found;
}

HotKeyRecorder* ShortcutsView::recorder(const HotKeySurface& surface) const {
    const auto found = std::ranges::find(m_lines, surface, &Line::surface);
    return found == m_lines.end() ? nullptr : found->recorder;
}

SettingRow* ShortcutsView::row(const HotKeySurface& surface) const {
    const auto found = std::ranges::find(m_lines, surface, &Line::surface);
    return found == m_lines.end() ? nullptr : found->row;
}

} // namespace vantrel

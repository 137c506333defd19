#include "Vantrel/interface/workbench/settings/SettingsPage.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/workbench/settings/ShortcutsView.h"
#include "Vantrel/interface/workbench/settings/TriggersView.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <utility>

namespace vantrel {

namespace {

constexpr double sectionsWidth = 214;
constexpr double margin = 28;
// Wider lines are hard to follow from the title to the control.
constexpr double widestContent = 680;

std::vector<ListRow> sectionRows() {
    std::vector<ListRow> rows;
    for (const auto& entry : SettingsSections::all()) {
        rows.push_back({.id = entry.name, .title = tr(entry.title), .symbol = entry.symbol});
    }
    return rows;
}

} // namespace

SettingsPage::SettingsPage(SettingsActions actions, QWidget* parent)
    : WorkbenchPage(parent), m_actions(std::move(actions)) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    auto* const side = new QVBoxLayout;
    side->setContentsMargins(points(8), points(10), points(8), points(12));
    m_sections = new ListRowsView(nullptr, this);
    m_sections->setAccessibleName(qtr("Sections of the settings"));
    m_sections->setFixedWidth(points(sectionsWidth));
    m_sections->delegate().setHasStrongSelection(true);
    m_sections->show(sectionRows());
    m_sections->onChosen = [this](const std::string& name) {
        if (const auto section = SettingsSections::named(name)) {
            choose(*section);
        }
    };
    side->addWidget(m_sections);
    all->addLayout(side);
    auto* const column = new QVBoxLayout;
    // Spaces are mirrored, margins are not.
    all->addSpacing(points(margin));
    column->setContentsMargins(0, points(16), 0, 0);
    column->setSpacing(points(12));
    m_title = new Label(Label::Role::title, this);
    column->addWidget(m_title);
    m_stack = new QStackedWidget(this);
    column->addWidget(m_stack, 1);
    all->addLayout(column, 1);
    m_section = SettingsSections::named(m_actions.rememberedSection()).value_or(SettingsSection::general);
}

void SettingsPage::show(const PublishedState& state, Topics changed) {
    const bool isFirst = m_state == nullptr;
    m_state = &state;
    if (isFirst) {
        choose(m_section);
    } else if (changed.containsAnyOf(
                   {Topic::settings, Topic::scenes, Topic::desk, Topic::status, Topic::deletions})) {
        refresh();
    }
    // Only once: later changes must not pull the user back here.
    if (state.pendingQuickSwitcherArm && !m_wasArmed) {
        armQuickSwitcher();
    }
    m_wasArmed = state.pendingQuickSwitcherArm;
}

void SettingsPage::choose(SettingsSection section) {
    if (m_section != section) {
        m_actions.rememberSection(SettingsSections::entryOf(section).name);
    }
    m_section = section;
    m_sections->choose(SettingsSections::entryOf(section).name);
    m_title->show(qtr(SettingsSections::entryOf(section).title));
    if (!m_views.contains(section)) {
        auto* const scroll = new QScrollArea(m_stack);
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setWidgetResizable(true);
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll->setFocusPolicy(Qt::NoFocus);
        auto* const inside = new QWidget(scroll);
        auto* const line = new QHBoxLayout(inside);
        line->setContentsMargins(0, 0, 0, Metrics::points(*this, 20));
        line->setSpacing(0);
        SettingsSectionView* const view = SettingsSectionViews::make(section, m_actions, inside);
        view->setMaximumWidth(Metrics::points(*this, widestContent));
        line->addWidget(view, 1);
        line->addSpacing(Metrics::points(*this, margin));
        line->addStretch(0);
        scroll->setWidget(inside);
        scroll->viewport()->setAutoFillBackground(false);
        inside->setAutoFillBackground(false);
        m_stack->addWidget(scroll);
        m_views[section] = scroll;
        m_shown[section] = view;
    }
    refresh();
    m_stack->setCurrentWidget(m_views.at(section));
}

void SettingsPage::refresh() {
    if (m_state != nullptr) {
        m_shown.at(m_section)->show(SettingsContent::of(*m_state, m_actions.context()));
    }
}

SettingsSectionView* SettingsPage::view() const {
    const auto found = m_shown.find(m_section);
    return found == m_shown.end() ? nullptr : found->second;
}

void SettingsPage::armQuickSwitcher() {
    choose(SettingsSection::shortcuts);
    auto* const shortcuts = dynamic_cast<ShortcutsView*>(view());
    HotKeyRecorder* const recorder =
        shortcuts == nullptr ? nullptr : shortcuts->recorder({HotKeySurface::Kind::quickSwitcher, {}});
    if (recorder != nullptr && !recorder->isRecording()) {
        recorder->startRecording();
    }
}

void SettingsPage::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.base);
    const QRect line(m_sections->width() + Metrics::points(*this, 16), 0, 1, height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), line), colors.hairline);
}

void SettingsPage::focusFirst() {
    m_sections->setFocus();
}

SettingsSectionView* SettingsSectionViews::make(SettingsSection section, const SettingsActions& actions,
                                                QWidget* parent) {
    switch (section) {
    case SettingsSection::general:
        return general(actions, parent);
    case SettingsSection::restoring:
        return restoring(actions, parent);
    case SettingsSection::shortcuts:
        return new ShortcutsView(actions, parent);
    case SettingsSection::triggers:
        return new TriggersView(actions, parent);
    case SettingsSection::displays:
        return displays(actions, parent);
    case SettingsSection::privacy:
        return privacy(actions, parent);
    case SettingsSection::license:
        return license(actions, parent);
    case SettingsSection::about:
        break;
    }
    return about(actions, parent);
}

} // namespace vantrel

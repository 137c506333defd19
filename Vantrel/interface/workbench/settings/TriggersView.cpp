#include "Vantrel/interface/workbench/settings/TriggersView.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "VantrelCore/ports/FocusReader.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/scenes/TriggerProblem.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

namespace {

constexpr int timeKind = 0;
constexpr int calendarKind = 1;
constexpr double fieldHeight = 30;

std::string idOf(const QComboBox& box) {
    return box.currentData().toString().toStdString();
}

} // namespace

TriggersView::TriggersView(const SettingsActions& actions, QWidget* parent)
    : SettingsSectionView(parent), m_actions(actions) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_none = new Label(Label::Role::second, this);
    column->addWidget(m_none);
    m_list = new QVBoxLayout;
    m_list->setSpacing(0);
    column->addLayout(m_list);
    column->addSpacing(points(20));
    buildNew();
    column->addWidget(m_new);
    column->addStretch(1);
}

void TriggersView::buildNew() {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    m_new = new SettingRow("plus", this);
    m_new->setTexts(vantrel::tr("Add a trigger"), "");
    m_kind = new QComboBox(m_new);
    m_kind->addItem(qtr("At a time"));
    m_kind->addItem(qtr("Before a video call"));
    m_kind->addItem(qtr("With do not disturb"));
    m_kind->setAccessibleName(qtr("What fires it"));
    m_time = new QLineEdit(m_new);
    m_time->setPlaceholderText("9:30");
    m_time->setAccessibleName(qtr("Time of day"));
    m_time->setFixedWidth(points(76));
    m_scene = new QComboBox(m_new);
    m_scene->setAccessibleName(qtr("The scene that it applies"));
    m_scene->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_scene->setMinimumWidth(points(120));
    m_add = new ActionButton("", ActionButton::Form::plain, m_new);
    m_add->setTexts(qtr("Add"), "");
    m_add->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (QWidget* const each : std::initializer_list<QWidget*>{m_kind, m_time, m_scene}) {
        each->setMinimumHeight(points(fieldHeight));
        m_new->addControl(each);
    }
    m_new->addControl(m_add);
    connect(m_kind, &QComboBox::currentIndexChanged, this, [this] { showNew(); });
    connect(m_time, &QLineEdit::textChanged, this, [this] { m_new->showProblem({}); });
    connect(m_time, &QLineEdit::returnPressed, this, [this] { addTrigger(); });
    connect(m_add, &QPushButton::clicked, this, [this] { addTrigger(); });
}

void TriggersView::showNew() {
    m_time->setVisible(m_kind->currentIndex() == timeKind);
    m_add->setEnabled(!m_scenes.empty());
    m_new->showProblem({});
    m_new->setTexts(vantrel::tr("Add a trigger"),
                    m_scenes.empty() ? vantrel::tr(SceneTriggerFormatting::noScenes) : "");
}

void TriggersView::addTrigger() {
    SceneTrigger::Kind kind = SceneTrigger::CalendarVideoEvent{};
    if (m_kind->currentIndex() == timeKind) {
        const auto time = SceneTriggerFormatting::scheduleOf(m_time->text().toStdString());
        if (!time) {
            m_new->showProblem(text(TriggerProblem::invalidTime));
            m_time->setFocus();
            return;
        }
        kind = *time;
    } else if (m_kind->currentIndex() != calendarKind) {
        kind = SceneTrigger::FocusMode{FocusReader::unnamed};
    }
    const auto problem = m_actions.addTrigger(kind, idOf(*m_scene));
    m_new->showProblem(problem);
    if (!problem) {
        m_time->clear();
    }
}

void TriggersView::show(const SettingsContent& content) {
    if (m_scenes != content.scenes || m_scene->count() == 0) {
        const std::string chosen = idOf(*m_scene);
        m_scenes = content.scenes;
        fillScenes(*m_scene, chosen);
        showNew();
    }
    std::erase_if(m_lines, [&](const Line& line) {
        const bool isGone = std::ranges::find(content.triggers, line.id, &SettingsContent::Trigger::id) ==
                            content.triggers.end();
        if (isGone) {
            line.row->hide();
            line.row->deleteLater();
        }
        return isGone;
    });
    for (const auto& trigger : content.triggers) {
        const auto found = std::ranges::find(m_lines, trigger.id, &Line::id);
        // Another kind has other fields.
        if (found != m_lines.end() && (found->time != nullptr) != trigger.time.has_value()) {
            found->row->hide();
            found->row->deleteLater();
            m_lines.erase(found);
        }
        if (std::ranges::find(m_lines, trigger.id, &Line::id) == m_lines.end()) {
            add(trigger);
        }
        update(*std::ranges::find(m_lines, trigger.id, &Line::id), trigger);
    }
    m_none->show(qt(content.noTriggers));
    m_none->setVisible(content.triggers.empty());
}

void TriggersView::add(const SettingsContent::Trigger& trigger) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    Line line{.id = trigger.id, .row = new SettingRow(trigger.symbol, this)};
    const auto tell = [this, id = trigger.id](const SettingsActions::Problem& problem) {
        const auto shown = std::ranges::find(m_lines, id, &Line::id);
        if (shown != m_lines.end()) {
            shown->row->showProblem(problem);
        }
    };
    if (trigger.time) {
        line.time = new QLineEdit(line.row);
        line.time->setFixedWidth(points(86));
        line.time->setMinimumHeight(points(fieldHeight));
        // Half-typed text is kept.
        connect(line.time, &QLineEdit::editingFinished, this,
                [this, tell, id = trigger.id, field = line.time] {
                    if (field->isModified()) {
                        const auto problem = m_actions.setTriggerTime(id, field->text().toStdString());
                        field->setModified(problem.has_value());
                        tell(problem);
                    }
                });
        line.row->addControl(line.time);
    }
    line.scene = new QComboBox(line.row);
    line.scene->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    line.scene->setFixedWidth(points(150));
    line.scene->setMinimumHeight(points(fieldHeight));
    connect(line.scene, &QComboBox::activated, this, [this, tell, id = trigger.id, box = line.scene] {
        tell(m_actions.setTriggerScene(id, idOf(*box)));
    });
    line.row->addControl(line.scene);
    line.isOn = new Switch(line.row);
    connect(line.isOn, &QCheckBox::clicked, this,
            [this, tell, id = trigger.id](bool isOn) { tell(m_actions.setTriggerEnabled(id, isOn)); });
    line.row->addControl(line.isOn);
    auto* const remove = new SymbolButton(
        "trash", qt(trf("Delete the trigger \"{}\"", trigger.time.value_or(trigger.title))), 30, line.row);
    connect(remove, &QToolButton::clicked, this, [this, id = trigger.id] { m_actions.deleteTrigger(id); });
    line.row->addControl(remove);
    m_list->addWidget(line.row);
    m_lines.push_back(line);
}

void TriggersView::update(Line& line, const SettingsContent::Trigger& trigger) {
    line.row->setWarning(trigger.isProblem);
    line.row->setTexts(trigger.title, trigger.detail);
    if (line.time != nullptr) {
        line.time->setAccessibleName(qt(trf("Time of the trigger at {}", *trigger.time)));
        if (!line.time->isModified()) {
            line.time->setText(qt(*trigger.time));
        }
    }
    line.scene->setAccessibleName(
        qt(trf("Scene of the trigger \"{}\"", trigger.time.value_or(trigger.title))));
    fillScenes(*line.scene, trigger.sceneID);
    line.isOn->setAccessibleName(qt(trigger.time.value_or(trigger.title)));
    line.isOn->setChecked(trigger.isOn);
}

void TriggersView::fillScenes(QComboBox& box, const std::string& chosen) const {
    const QSignalBlocker quiet(&box);
    bool isFilled = box.count() == static_cast<int>(m_scenes.size());
    for (int i = 0; isFilled && i < box.count(); ++i) {
        const auto& scene = m_scenes[static_cast<std::size_t>(i)];
        isFilled = box.itemData(i) == qt(scene.id) && box.itemText(i) == qt(scene.name);
    }
    // An open list stays open.
    if (!isFilled) {
        box.clear();
        for (const auto& scene : m_scenes) {
            box.addItem(qt(scene.name), qt(scene.id));
        }
    }
    const int index = box.findData(qt(chosen));
    box.setCurrentIndex(index >= 0 || &box != m_scene ? index : 0);
}

} // namespace vantrel

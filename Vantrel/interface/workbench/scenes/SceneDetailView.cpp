#include "Vantrel/interface/workbench/scenes/SceneDetailView.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/EmptyLayout.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPainter>
#include <QResizeEvent>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

namespace {

constexpr double margin = 28;
// Narrower than this, the facts stand in one column.
constexpr double twoColumns = 660;

QHBoxLayout* rowIn(QWidget* parent, int spacing) {
    auto* const row = new QHBoxLayout(parent);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

void showDeed(QWidget& button, const ScenesContent::Deed& deed) {
    button.setEnabled(deed.isPossible);
    button.setToolTip(qt(deed.reason));
}

} // namespace

// The scene's symbol.
class SceneDetailView::Sign final : public QWidget {
public:
    Sign(std::string symbol, double side, QWidget* parent) : QWidget(parent), m_symbol(std::move(symbol)) {
        setFixedSize(Metrics::points(*this, side), Metrics::points(*this, side));
    }

    void show(const std::string& symbol, bool isAccented) {
        m_symbol = symbol;
        m_isAccented = isAccented;
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto colors = DeskColors::of(palette());
        QPainter painter(this);
        Symbols::paint(painter, m_symbol, rect(), m_isAccented ? colors.accent : colors.secondText);
    }

private:
    std::string m_symbol;
    bool m_isAccented = false;
};

// The icons of the scene's applications, as many as there is room for.
class SceneDetailView::AppIcons final : public QWidget {
public:
    AppIcons(ApplicationLooks& looks, QWidget* parent) : QWidget(parent), m_looks(looks) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    void show(const std::vector<ScenesContent::App>& apps) {
        if (apps == m_apps) {
            return;
        }
        m_apps = apps;
        QStringList names;
        for (const auto& app : apps) {
            names.append(qt(app.name));
        }
        setToolTip(names.join('\n'));
        setAccessibleName(names.join(", "));
        updateGeometry();
        update();
    }

    [[nodiscard]] QSize sizeHint() const override {
        constexpr std::size_t most = 8;
        const auto count = static_cast<int>(std::min(m_apps.size(), most));
        return {count * (side() + gap()), side()};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return {side(), side()}; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QRect place(0, (height() - side()) / 2, side(), side());
        for (const auto& app : m_apps) {
            if (place.right() >= width()) {
                break;
            }
            m_looks.of(app.bundleID, app.name)
                .icon.paint(&painter, QStyle::visualRect(layoutDirection(), rect(), place));
            place.translate(side() + gap(), 0);
        }
    }

private:
    [[nodiscard]] int side() const { return Metrics::points(*this, 20); }
    [[nodiscard]] int gap() const { return Metrics::points(*this, 6); }

    ApplicationLooks& m_looks;
    std::vector<ScenesContent::App> m_apps;
};

SceneDetailView::SceneDetailView(ApplicationLooks& looks, const ScenesActions& actions, QWidget* parent)
    : QWidget(parent), m_looks(looks), m_actions(actions) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(points(margin), points(24), points(margin), points(24));
    column->setSpacing(0);
    column->addLayout(header());
    column->addSpacing(points(24));
    m_drawing = new DeskView(m_looks, this);
    m_drawing->setHighest(points(330));
    column->addWidget(m_drawing);
    column->addSpacing(points(20));
    column->addWidget(new Hairline(this));
    column->addSpacing(points(14));
    column->addWidget(facts());
    column->addStretch(1);
}

int SceneDetailView::points(double length) const {
    return Metrics::points(QApplication::font(), length);
}

QBoxLayout* SceneDetailView::header() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(points(8));
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(points(2));
    auto* const title = new QHBoxLayout;
    title->setSpacing(points(10));
    m_symbol = new Sign("scenes", 20, this);
    m_name = new NameField(qtr("Name of the scene"), 1.5, this);
    m_name->problemWith = [this](const std::string& name) {
        return m_actions.scenes.problemWithRename(m_content->id, name);
    };
    m_name->rename = [this](const std::string& name) { return m_actions.scenes.rename(m_content->id, name); };
    title->addWidget(m_symbol);
    title->addWidget(m_name, 1);
    m_subtitle = new Label(Label::Role::second, this);
    m_subtitle->setElided(true);
    texts->addLayout(title);
    texts->addWidget(&m_name->problemLabel());
    texts->addWidget(m_subtitle);
    row->addLayout(texts, 1);
    m_more = new SymbolButton("dots", qtr("More"), 30, this);
    connect(m_more, &QToolButton::clicked, this,
            [this] { onMenu(m_more->mapToGlobal(QPoint(0, m_more->height()))); });
    m_update = new ActionButton("", ActionButton::Form::plain, this);
    m_update->setTexts(qtr("Update"), "");
    connect(m_update, &QPushButton::clicked, this, [this] { m_actions.scenes.update(m_content->id); });
    m_edit = new ActionButton("pencil", ActionButton::Form::plain, this);
    m_edit->setTexts(qtr("Edit"), "");
    connect(m_edit, &QPushButton::clicked, this, [this] { onEdit(); });
    m_apply = new ActionButton("", ActionButton::Form::plain, this);
    m_apply->setTexts(qtr("Apply"), "");
    m_apply->setFilled(true);
    connect(m_apply, &QPushButton::clicked, this, [this] { m_actions.scenes.apply(m_content->id); });
    row->addWidget(m_more, 0, Qt::AlignVCenter);
    for (ActionButton* const button : {m_update, m_edit, m_apply}) {
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        row->addWidget(button, 0, Qt::AlignVCenter);
    }
    return row;
}

QBoxLayout* SceneDetailView::fact(QGridLayout& grid, const QString& name) {
    const int row = grid.rowCount();
    auto* const label = new Label(Label::Role::quiet, this);
    label->setMinimumHeight(points(30));
    label->show(name);
    grid.addWidget(label, row, 0, Qt::AlignTop);
    auto* const value = new QVBoxLayout;
    value->setSpacing(points(4));
    grid.addLayout(value, row, 1);
    return value;
}

QWidget* SceneDetailView::facts() {
    auto* const all = new QWidget(this);
    m_columns = new QBoxLayout(QBoxLayout::LeftToRight, all);
    m_columns->setContentsMargins(0, 0, 0, 0);
    m_columns->setSpacing(points(24));
    const auto column = [&] {
        auto* const grid = new QGridLayout;
        grid->setHorizontalSpacing(points(16));
        grid->setVerticalSpacing(points(4));
        grid->setColumnStretch(1, 1);
        grid->setColumnMinimumWidth(0, points(92));
        auto* const framed = new QVBoxLayout;
        framed->addLayout(grid);
        framed->addStretch(1);
        m_columns->addLayout(framed, 1);
        return grid;
    };
    const auto line = [this](QBoxLayout& value) {
        auto* const widget = new QWidget(this);
        widget->setMinimumHeight(points(30));
        value.addWidget(widget);
        return rowIn(widget, points(8));
    };

    QGridLayout* grid = column();
    auto* row = line(*fact(*grid, qtr("Windows")));
    m_apps = new AppIcons(m_looks, this);
    m_windows = new Label(Label::Role::quiet, this);
    m_windows->setElided(true);
    row->addWidget(m_apps);
    row->addWidget(m_windows, 1);

    row = line(*fact(*grid, qtr("Now")));
    m_moved = new Sign("move", 16, this);
    m_moved->show("move", true);
    m_now = new Label(Label::Role::text, this);
    row->addWidget(m_moved);
    row->addWidget(m_now, 1);

    auto* value = fact(*grid, qtr("Shortcut"));
    row = line(*value);
    m_recorder =
        new HotKeyRecorder(HotKeySurface::scene(""), HotKeyRecording::Place::menuPanelScene,
                           {.keyCode = [this](const QKeyEvent& event) { return m_actions.keyCode(event); },
                            .taken = [this] { return m_actions.takenHotKeys(); },
                            .store =
                                [this](std::optional<HotKeyCombo> combo) {
                                    return m_actions.scenes.setHotkey(m_content->id, combo);
                                },
                            .problem =
                                [this](const std::string& problem) {
                                    m_shortcutProblem->show(qt(problem));
                                    m_shortcutProblem->setVisible(!problem.empty());
                                }},
                           this);
    m_recorder->setProminent(true);
    row->addWidget(m_recorder);
    row->addStretch(1);
    m_shortcutProblem = new Label(Label::Role::problem, this);
    m_shortcutProblem->hide();
    value->addWidget(m_shortcutProblem);

    value = fact(*grid, qtr("Applied by"));
    m_triggerList = new QWidget(this);
    m_triggers = new QVBoxLayout(m_triggerList);
    m_triggers->setContentsMargins(0, 0, 0, 0);
    m_triggers->setSpacing(0);
    value->addWidget(m_triggerList);
    value->addWidget(timeRow());

    row = line(*fact(*grid, qtr("Last applied")));
    m_lastApplied = new Label(Label::Role::text, this);
    row->addWidget(m_lastApplied, 1);

    grid = column();
    value = fact(*grid, qtr("Wallpaper"));
    m_wallpapers = new WallpaperFacts(m_actions.wallpapers.thumbnails, this);
    m_wallpapers->onChange = [this] { onWallpapers(); };
    value->addWidget(m_wallpapers);

    row = line(*fact(*grid, qtr("Keep as it is")));
    m_pin = new Switch(this);
    m_pin->setAccessibleName(qtr("Pin against updates"));
    connect(m_pin, &Switch::clicked, this,
            [this](bool isOn) { m_actions.scenes.setPinned(m_content->id, isOn); });
    m_pinText = new Label(Label::Role::quiet, this);
    m_pinText->show(qtr("Pin against updates"));
    row->addWidget(m_pin);
    row->addWidget(m_pinText, 1);

    value = fact(*grid, qtr("Missing apps"));
    row = line(*value);
    m_opens = new QCheckBox(qtr("Open when applied"), this);
    connect(m_opens, &QCheckBox::clicked, this,
            [this](bool opens) { m_actions.scenes.setOpensMissingApps(m_content->id, opens); });
    row->addWidget(m_opens, 1);
    m_opensReason = new Label(Label::Role::second, this);
    value->addWidget(m_opensReason);
    return all;
}

QWidget* SceneDetailView::timeRow() {
    auto* const widget = new QWidget(this);
    auto* const column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(points(4));
    m_addTime = new ActionButton("plus", ActionButton::Form::plain, widget);
    m_addTime->setTexts(qtr("Add a time"), "");
    m_addTime->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_time = new QLineEdit(widget);
    m_time->setPlaceholderText(qtr("Time of day, as 9:30 or 2:15 pm"));
    m_time->setAccessibleName(qtr("Time at which the scene is applied"));
    m_time->setMinimumHeight(points(30));
    m_time->hide();
    m_timeProblem = new Label(Label::Role::problem, widget);
    m_timeProblem->hide();
    connect(m_addTime, &QPushButton::clicked, this, [this] {
        m_addTime->hide();
        m_time->show();
        m_time->setFocus();
    });
    connect(m_time, &QLineEdit::returnPressed, this, [this] { addTime(); });
    connect(m_time, &QLineEdit::textEdited, this, [this] { m_timeProblem->hide(); });
    // Leaving an empty field closes it.
    connect(m_time, &QLineEdit::editingFinished, this, [this] {
        if (m_time->text().isEmpty() && !m_time->hasFocus()) {
            m_time->hide();
            m_timeProblem->hide();
            m_addTime->show();
        }
    });
    column->addWidget(m_addTime);
    column->addWidget(m_time);
    column->addWidget(m_timeProblem);
    return widget;
}

void SceneDetailView::addTime() {
    const auto problem = m_actions.addTime(m_content->id, m_time->text().trimmed().toStdString());
    m_timeProblem->show(qt(problem.value_or("")));
    m_timeProblem->setVisible(problem.has_value());
    if (!problem) {
        m_time->clear();
        m_time->hide();
        m_addTime->show();
        m_addTime->setFocus();
    }
}

void SceneDetailView::show(const ScenesContent::Detail& detail) {
    const bool isOther = !m_content || m_content->id != detail.id;
    const bool hasOtherTriggers = isOther || m_content->triggers != detail.triggers;
    if (isOther) {
        // What was typed belongs to the other scene.
        m_name->setModified(false);
        m_name->problemLabel().hide();
        m_shortcutProblem->hide();
        m_recorder->setSurface(HotKeySurface::scene(detail.id));
        m_time->clear();
        m_time->hide();
        m_timeProblem->hide();
        m_addTime->show();
    }
    m_content = detail;
    m_symbol->show(detail.symbol, true);
    m_name->setName(qt(detail.name));
    m_subtitle->show(qt(detail.subtitle));
    showDeed(*m_update, detail.update);
    showDeed(*m_apply, detail.apply);
    m_drawing->show(detail.drawing);
    m_apps->show(detail.apps);
    m_windows->show(qt(detail.windows));
    m_now->show(detail.now.empty() ? qtr("Looking…") : qt(detail.now));
    m_moved->setVisible(detail.hasMoved);
    m_recorder->setTitle(qt(detail.name));
    m_recorder->setShortcut(qt(detail.shortcut));
    m_recorder->setRefused(detail.isShortcutRefused);
    if (hasOtherTriggers) {
        showTriggers();
    }
    m_lastApplied->show(detail.lastApplied.empty() ? qtr("Not in the last days") : qt(detail.lastApplied));
    m_wallpapers->show(detail.wallpapers);
    m_pin->setChecked(detail.isPinned);
    m_opens->setChecked(detail.opensMissingApps);
    m_opens->setEnabled(detail.missingAppsReason.empty());
    m_opensReason->show(qt(detail.missingAppsReason));
    m_opensReason->setVisible(!detail.missingAppsReason.empty());
}

void SceneDetailView::showTriggers() {
    if (m_triggerList->isAncestorOf(focusWidget())) {
        m_addTime->setFocus();
    }
    emptyLayout(*m_triggers);
    for (const auto& trigger : m_content->triggers) {
        auto* const widget = new QWidget(m_triggerList);
        widget->setMinimumHeight(points(30));
        auto* const row = rowIn(widget, points(8));
        row->addWidget(new Sign("clock", 16, widget));
        auto* const text = new Label(trigger.isEnabled ? Label::Role::text : Label::Role::quiet, widget);
        text->show(trigger.isEnabled ? qt(trigger.text) : qtr("%1 (off)").arg(qt(trigger.text)));
        auto* const texts = new QVBoxLayout;
        texts->setSpacing(0);
        texts->addWidget(text);
        if (!trigger.next.empty()) {
            auto* const next = new Label(Label::Role::second, widget);
            next->show(qt(trigger.next));
            texts->addWidget(next);
        }
        row->addLayout(texts, 1);
        auto* const remove = new SymbolButton("close", qtr("Remove “%1”").arg(qt(trigger.text)), 26, widget);
        connect(remove, &QToolButton::clicked, this,
                [this, id = trigger.id] { m_actions.removeTrigger(id); });
        row->addWidget(remove);
        m_triggers->addWidget(widget);
    }
    m_triggerList->setVisible(!m_content->triggers.empty());
}

void SceneDetailView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_columns->setDirection(event->size().width() < points(twoColumns) ? QBoxLayout::TopToBottom
                                                                       : QBoxLayout::LeftToRight);
}

} // namespace vantrel

#include "Vantrel/interface/workbench/history/HistoryPage.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QAction>
#include <QButtonGroup>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr double listWidth = 288;
constexpr double margin = 28;

QPushButton* toggle(const QString& text, QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setCheckable(true);
    button->setAutoDefault(false);
    button->setMinimumHeight(Metrics::points(*parent, 30));
    return button;
}

// What an arrow and a hatched box mean.
class Legend final : public QWidget {
public:
    explicit Legend(QWidget* parent) : QWidget(parent) {
        auto* const row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(Metrics::points(*this, 8));
        add(*row, "move", qtr("where it was, where it went"));
        row->addSpacing(Metrics::points(*this, 8));
        add(*row, "warn", qtr("did not get there"));
        row->addStretch(1);
    }

private:
    class Sign final : public QWidget {
    public:
        Sign(const char* symbol, QWidget* parent) : QWidget(parent), m_symbol(symbol) {
            const int side = Metrics::points(*this, 16);
            setFixedSize(side, side);
        }

    protected:
        void paintEvent(QPaintEvent* /*event*/) override {
            const auto colors = DeskColors::of(palette());
            QPainter painter(this);
            Symbols::paint(painter, m_symbol, rect(),
                           QString(m_symbol) == "warn" ? colors.warning : colors.accent);
        }

    private:
        const char* m_symbol;
    };

    void add(QBoxLayout& row, const char* symbol, const QString& text) {
        auto* const label = new Label(Label::Role::second, this);
        label->setElided(true);
        label->show(text);
        row.addWidget(new Sign(symbol, this));
        row.addWidget(label);
    }
};

} // namespace

HistoryPage::HistoryPage(ApplicationLooks& looks, HistoryActions actions, QWidget* parent)
    : WorkbenchPage(parent), m_looks(looks), m_actions(std::move(actions)) {
    auto* const all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(listSide());
    all->addSpacing(1);
    m_scroll = new QScrollArea(this);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_detail = detailSide();
    m_scroll->setWidget(m_detail);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_detail->setAutoFillBackground(false);
    all->addWidget(m_scroll, 1);
    m_empty = emptyHint();
    all->addWidget(m_empty, 1);
}

int HistoryPage::points(double length) const {
    return Metrics::points(*this, length);
}

QWidget* HistoryPage::listSide() {
    auto* const side = new QWidget(this);
    side->setFixedWidth(points(listWidth));
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, points(10), 0, points(12));
    column->setSpacing(0);
    column->addWidget(filters(side));
    column->addSpacing(points(8));
    m_rows = new ListRowsView(&m_looks, side);
    m_rows->setAccessibleName(qtr("History"));
    m_rows->installEventFilter(this);
    m_rows->onChosen = [this](const std::string& id) {
        (m_list == HistoryContent::List::apps ? m_chosenApp : m_chosenRestore) = id;
        m_showsInPlace = false;
        refresh();
    };
    auto* const framed = new QHBoxLayout;
    framed->setContentsMargins(points(8), 0, points(8), 0);
    framed->addWidget(m_rows);
    column->addLayout(framed, 1);
    column->addWidget(new Hairline(side));
    column->addWidget(totals(side));
    return side;
}

QWidget* HistoryPage::filters(QWidget* parent) {
    auto* const widget = new QWidget(parent);
    auto* const column = new QVBoxLayout(widget);
    column->setContentsMargins(points(12), 0, points(12), 0);
    column->setSpacing(points(8));
    auto* const lists = new QHBoxLayout;
    lists->setSpacing(0);
    m_restores = toggle(qtr("Restores"), widget);
    m_apps = toggle(qtr("Apps"), widget);
    m_restores->setChecked(true);
    auto* const group = new QButtonGroup(widget);
    for (QPushButton* const button : {m_restores, m_apps}) {
        group->addButton(button);
        lists->addWidget(button, 1);
    }
    connect(m_restores, &QPushButton::clicked, this, [this] { showList(HistoryContent::List::restores); });
    connect(m_apps, &QPushButton::clicked, this, [this] { showList(HistoryContent::List::apps); });
    column->addLayout(lists);
    auto* const row = new QHBoxLayout;
    row->setSpacing(points(8));
    m_search = new QLineEdit(widget);
    m_search->setPlaceholderText(qtr("App or desk"));
    m_search->setAccessibleName(qtr("Search the history"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumHeight(points(30));
    m_search->addAction(Symbols::icon("search", QPalette::Text), QLineEdit::LeadingPosition)
        ->setText(qtr("Search"));
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, [this] { refresh(); });
    m_problems = toggle(qtr("Problems"), widget);
    m_problems->setIcon(Symbols::icon("warn"));
    m_problems->setToolTip(qtr("Only what could not be moved"));
    connect(m_problems, &QPushButton::clicked, this, [this] { refresh(); });
    row->addWidget(m_search, 1);
    row->addWidget(m_problems);
    column->addLayout(row);
    return widget;
}

QWidget* HistoryPage::totals(QWidget* parent) {
    auto* const widget = new QWidget(parent);
    auto* const column = new QVBoxLayout(widget);
    column->setContentsMargins(points(16), points(12), points(16), 0);
    column->setSpacing(points(2));
    m_days = new DayBars(widget);
    column->addWidget(m_days);
    auto* const row = new QHBoxLayout;
    for (const auto& text : {qtr("30 days ago"), qtr("today")}) {
        auto* const label = new Label(Label::Role::second, widget);
        label->setElided(true);
        label->show(text);
        row->addWidget(label);
        if (row->count() == 1) {
            row->addStretch(1);
        }
    }
    column->addLayout(row);
    column->addSpacing(points(6));
    m_daysText = new Label(Label::Role::text, widget);
    m_usage = new Label(Label::Role::second, widget);
    column->addWidget(m_daysText);
    column->addWidget(m_usage);
    return widget;
}

QWidget* HistoryPage::detailSide() {
    auto* const side = new QWidget(this);
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(points(margin), points(24), points(margin), points(24));
    column->setSpacing(0);
    auto* const header = new QHBoxLayout;
    header->setSpacing(points(8));
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(points(2));
    m_title = new Label(Label::Role::title, side);
    m_subtitle = new Label(Label::Role::second, side);
    texts->addWidget(m_title);
    texts->addWidget(m_subtitle);
    header->addLayout(texts, 1);
    m_copy = new ActionButton("copy", ActionButton::Form::plain, side);
    m_copy->setTexts(qtr("Copy as text"), "");
    connect(m_copy, &QPushButton::clicked, this, [this] { m_actions.copy(m_content.detail->text); });
    m_undo = new ActionButton("undo", ActionButton::Form::plain, side);
    m_undo->setTexts(qtr("Undo"), "");
    connect(m_undo, &QPushButton::clicked, this, [this] { m_actions.undo(); });
    for (ActionButton* const button : {m_copy, m_undo}) {
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        header->addWidget(button, 0, Qt::AlignTop);
    }
    column->addLayout(header);
    column->addSpacing(points(24));
    m_drawing = new DeskView(m_looks, side);
    m_drawing->setHighest(points(300));
    column->addWidget(m_drawing);
    column->addSpacing(points(10));
    m_legend = new Legend(side);
    column->addWidget(m_legend);
    column->addSpacing(points(10));
    m_lines = new ListRowsView(&m_looks, side);
    m_lines->setAccessibleName(qtr("Windows"));
    m_lines->delegate().setForm(ListRowDelegate::Form::table);
    m_lines->setShowsAll();
    // In the drawing, the window of the row stands out.
    m_lines->onChosen = [this](const std::string& id) {
        const auto& drawn = m_content.detail->drawn;
        const auto window = drawn.find(id);
        m_drawing->lift(window == drawn.end() ? std::nullopt : std::optional(window->second));
    };
    column->addWidget(m_lines);
    m_inPlace = new ActionButton("right", ActionButton::Form::wide, side);
    m_inPlace->setFlat(true);
    connect(m_inPlace, &QPushButton::clicked, this, [this] {
        m_showsInPlace = !m_showsInPlace;
        refresh();
    });
    column->addWidget(m_inPlace);
    column->addStretch(1);
    return side;
}

QWidget* HistoryPage::emptyHint() {
    auto* const hint = new QWidget(this);
    auto* const column = new QVBoxLayout(hint);
    column->setContentsMargins(points(48), points(24), points(48), points(24));
    column->setSpacing(points(8));
    m_emptyTitle = new Label(Label::Role::heading, hint);
    m_emptyText = new Label(Label::Role::text, hint);
    column->addStretch(2);
    column->addWidget(m_emptyTitle);
    column->addWidget(m_emptyText);
    column->addStretch(3);
    return hint;
}

void HistoryPage::show(const PublishedState& state, Topics changed) {
    m_state = &state;
    if (changed.containsAnyOf({Topic::desk, Topic::layouts, Topic::history, Topic::status})) {
        refresh();
    }
}

void HistoryPage::showList(HistoryContent::List list) {
    m_list = list;
    (list == HistoryContent::List::apps ? m_apps : m_restores)->setChecked(true);
    refresh();
}

void HistoryPage::refresh() {
    if (m_state == nullptr) {
        return;
    }
    const bool isOfApps = m_list == HistoryContent::List::apps;
    HistoryContent::Context context = m_actions.context();
    context.list = m_list;
    context.search = m_search->text().toStdString();
    context.hasProblemsOnly = m_problems->isChecked();
    context.chosen = isOfApps ? m_chosenApp : m_chosenRestore;
    context.showsInPlace = m_showsInPlace;
    m_content = HistoryContent::of(*m_state, context);
    m_rows->show(m_content.rows);
    m_days->show(m_content.days, qt(m_content.daysText));
    m_daysText->show(qt(m_content.daysText));
    m_usage->show(qt(m_content.usage));
    m_usage->setVisible(!m_content.usage.empty());
    m_scroll->setVisible(m_content.detail.has_value());
    m_empty->setVisible(!m_content.detail.has_value());
    if (m_content.detail) {
        m_rows->choose(m_content.detail->id);
        showDetail();
    } else {
        m_emptyTitle->show(m_content.isEmpty ? qtr("Nothing was put back yet") : qtr("Nothing found"));
        m_emptyText->show(m_content.isEmpty
                              ? qtr("When displays come and go, or you apply a scene, this page says what "
                                    "happened to every window. It keeps the last seven days.")
                              : qtr("No entry of the last seven days fits the filter."));
    }
}

void HistoryPage::showDetail() {
    const auto& detail = *m_content.detail;
    m_title->show(qt(detail.title));
    m_subtitle->show(qt(detail.subtitle));
    m_undo->setVisible(detail.canUndo);
    m_drawing->setVisible(detail.drawing.has_value());
    m_legend->setVisible(detail.drawing.has_value());
    if (detail.drawing) {
        m_drawing->show(*detail.drawing);
    }
    m_lines->show(detail.lines);
    m_lines->setVisible(!detail.lines.empty());
    m_inPlace->setTexts(qt(detail.inPlace), "");
    m_inPlace->setSymbol(m_showsInPlace ? "down" : "right");
    m_inPlace->setVisible(!detail.inPlace.empty());
}

void HistoryPage::focusFirst() {
    QWidget* const first = m_content.rows.empty() ? static_cast<QWidget*>(m_search) : m_rows;
    first->setFocus(Qt::OtherFocusReason);
}

std::vector<std::pair<QString, QString>> HistoryPage::keys() const {
    return {{QKeySequence(QKeySequence::Copy).toString(QKeySequence::NativeText),
             qtr("Copy the chosen entry as text")}};
}

bool HistoryPage::eventFilter(QObject* object, QEvent* event) {
    if (object == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape && !m_search->text().isEmpty()) {
            m_search->clear();
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_Return) {
            m_rows->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    // The list itself would copy only the row's title.
    if (object == m_rows && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy) && m_content.detail) {
        m_actions.copy(m_content.detail->text);
        return true;
    }
    return WorkbenchPage::eventFilter(object, event);
}

void HistoryPage::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.base);
    const QRect line(points(listWidth), 0, 1, height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), line), colors.hairline);
}

} // namespace vantrel

#include "Vantrel/interface/workbench/rules/RulesPage.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

namespace {

constexpr double margin = 20;
constexpr double choiceWidth = 196;
constexpr double lastWidth = 84;
constexpr double searchWidth = 240;

} // namespace

RulesPage::RulesPage(ApplicationLooks& looks, RulesActions actions, QWidget* parent)
    : WorkbenchPage(parent), m_looks(looks), m_actions(std::move(actions)),
      m_columns{.choice = Metrics::points(*this, choiceWidth), .last = Metrics::points(*this, lastWidth)} {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(head());
    m_adding = adding();
    m_adding->hide();
    column->addWidget(m_adding);
    column->addWidget(columnTitles());
    column->addWidget(new Hairline(this));
    m_scroll = new QScrollArea(this);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    auto* const list = new QWidget(m_scroll);
    m_list = new QVBoxLayout(list);
    m_list->setContentsMargins(0, 0, 0, 0);
    m_list->setSpacing(0);
    m_empty = new Label(Label::Role::second, list);
    m_empty->setContentsMargins(points(margin), points(24), points(margin), points(24));
    m_list->addWidget(m_empty);
    m_list->addStretch(1);
    m_scroll->setWidget(list);
    m_scroll->viewport()->setAutoFillBackground(false);
    list->setAutoFillBackground(false);
    column->addWidget(m_scroll, 1);
}

QWidget* RulesPage::head() {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const head = new QWidget(this);
    auto* const line = new QHBoxLayout(head);
    line->setContentsMargins(points(margin), points(16), points(margin), points(14));
    line->setSpacing(points(12));
    auto* const title = new Label(Label::Role::title, head);
    title->show(qtr("Rules"));
    title->setWordWrap(false);
    line->addWidget(title);
    line->addStretch(1);
    m_search = new QLineEdit(head);
    m_search->setPlaceholderText(qtr("Search apps"));
    m_search->setAccessibleName(qtr("Search apps"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumHeight(points(30));
    m_search->setMaximumWidth(points(searchWidth));
    m_search->addAction(Symbols::icon("search", QPalette::Text), QLineEdit::LeadingPosition)
        ->setText(qtr("Search"));
    connect(m_search, &QLineEdit::textChanged, this, [this] { refresh(); });
    line->addWidget(m_search, 2);
    auto* const add = new ActionButton("plus", ActionButton::Form::plain, head);
    add->setTexts(qtr("Add an app…"), "");
    add->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(add, &QPushButton::clicked, this, [this] { startAdding(); });
    line->addWidget(add);
    return head;
}

QWidget* RulesPage::adding() {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const adding = new QWidget(this);
    auto* const column = new QVBoxLayout(adding);
    column->setContentsMargins(points(margin), 0, points(margin), points(12));
    column->setSpacing(points(4));
    auto* const line = new QHBoxLayout;
    line->setSpacing(points(8));
    m_name = new QLineEdit(adding);
    m_name->setPlaceholderText(qtr("The app's name or identifier"));
    m_name->setAccessibleName(qtr("The app's name or identifier"));
    m_name->setMinimumHeight(points(30));
    connect(m_name, &QLineEdit::returnPressed, this, [this] { addApplication(); });
    connect(m_name, &QLineEdit::textChanged, this, [this] { m_problem->hide(); });
    line->addWidget(m_name, 1);
    auto* const close = new SymbolButton("close", qtr("Cancel"), 30, adding);
    connect(close, &QToolButton::clicked, this, [this] { endAdding(); });
    line->addWidget(close);
    column->addLayout(line);
    m_problem = new Label(Label::Role::problem, adding);
    m_problem->hide();
    column->addWidget(m_problem);
    return adding;
}

QWidget* RulesPage::columnTitles() {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const titles = new QWidget(this);
    auto* const line = new QHBoxLayout(titles);
    line->setContentsMargins(points(margin), 0, points(margin), points(8));
    line->setSpacing(0);
    const auto add = [&](const QString& text, int width) {
        auto* const title = new Label(Label::Role::second, titles);
        title->show(text);
        if (width > 0) {
            title->setFixedWidth(width);
        }
        line->addWidget(title, width > 0 ? 0 : 1, Qt::AlignBottom);
        return title;
    };
    add(qtr("App and what Vantrel has learned"), 0);
    add(qtr("When the desk is restored"), m_columns.choice);
    add(qtr("Place last"), m_columns.last)->setAlignment(Qt::AlignHCenter);
    return titles;
}

void RulesPage::show(const PublishedState& state, Topics changed) {
    const bool isFirst = m_state == nullptr;
    m_state = &state;
    if (isFirst || changed.containsAnyOf({Topic::rules, Topic::layouts, Topic::scenes, Topic::history})) {
        m_facts = m_actions.facts();
    }
    if (isFirst || changed.containsAnyOf({Topic::rules, Topic::layouts, Topic::scenes, Topic::history,
                                          Topic::desk, Topic::live})) {
        refresh();
    }
}

void RulesPage::refresh() {
    if (m_state != nullptr) {
        m_content = RulesContent::of(*m_state, m_facts, m_added, m_search->text().toStdString());
        showRows();
    }
}

// Rows are kept as long as their applications are shown, with focus and open lists.
void RulesPage::showRows() {
    std::vector<RuleRowView*> shown;
    for (const auto& row : m_content.rows) {
        const auto found = std::ranges::find_if(
            m_rows, [&](const RuleRowView* view) { return view->row().bundleID == row.bundleID; });
        RuleRowView* view = found == m_rows.end() ? nullptr : *found;
        if (view == nullptr) {
            view = new RuleRowView(m_looks, m_columns, m_scroll->widget());
            view->onChanged = [this](const RulesContent::Row& wanted) { m_actions.change(wanted); };
        } else {
            m_rows.erase(found);
        }
        view->show(row, m_content.displays);
        shown.push_back(view);
    }
    for (RuleRowView* const gone : m_rows) {
        gone->hide();
        gone->deleteLater();
    }
    m_rows = std::move(shown);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const int place = static_cast<int>(i) + 1;
        if (m_list->indexOf(m_rows[i]) != place) {
            m_list->insertWidget(place, m_rows[i]);
            m_rows[i]->show();
        }
    }
    // In reading order.
    for (std::size_t i = 1; i < m_rows.size(); ++i) {
        QWidget::setTabOrder(&m_rows[i - 1]->placedLast(), &m_rows[i]->choice());
    }
    m_empty->setVisible(m_rows.empty());
    m_empty->show(qt(m_content.emptyText));
}

void RulesPage::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), DeskColors::of(palette()).base);
}

void RulesPage::focusFirst() {
    if (m_rows.empty()) {
        m_search->setFocus();
    } else {
        m_rows.front()->choice().setFocus();
    }
}

void RulesPage::startAdding(const QString& name) {
    m_adding->show();
    m_name->setFocus();
    if (!name.isEmpty()) {
        m_name->setText(name);
        addApplication();
    }
}

void RulesPage::endAdding() {
    m_name->clear();
    m_problem->hide();
    m_adding->hide();
}

void RulesPage::addApplication() {
    const auto found = m_actions.find(m_name->text().toStdString());
    if (!found) {
        m_problem->show(qt(found.error()));
        m_problem->QWidget::show();
        return;
    }
    const std::string bundleID = found->bundleID;
    m_added.insert(m_added.begin(), *found);
    m_search->clear();
    endAdding();
    refresh();
    for (RuleRowView* const row : m_rows) {
        if (row->row().bundleID == bundleID) {
            row->choice().setFocus();
            m_scroll->ensureWidgetVisible(row);
        }
    }
}

} // namespace vantrel

#include "Vantrel/interface/panel/LayoutRow.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/controls/SymbolButton.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr double margin = 16;
constexpr double controlSide = 30;

} // namespace

LayoutRow::LayoutRow(const PanelActions& actions, QWidget* parent) : QWidget(parent), m_actions(actions) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const group = new QVBoxLayout(this);
    group->setContentsMargins(0, 0, 0, 0);
    group->setSpacing(0);
    group->addWidget(new Hairline(this));
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(points(margin), points(10), points(margin), points(10));
    row->setSpacing(points(8));
    auto* const title = new Label(Label::Role::text, this);
    title->setElided(true);
    title->show(qtr("Layout"));
    m_box = new QComboBox(this);
    m_box->setAccessibleName(qtr("Layout"));
    m_box->setMinimumHeight(points(controlSide));
    m_box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_box, &QComboBox::activated, this,
            [this](int index) { m_actions.switchLayout(m_box->itemText(index).toStdString()); });
    const auto button = [&](const char* symbol, const QString& text) {
        auto* const made = new SymbolButton(symbol, text, static_cast<int>(controlSide), this);
        made->setAutoRaise(false);
        return made;
    };
    m_pin = button("pin", qtr("Keep this layout as it is"));
    m_pin->setCheckable(true);
    connect(m_pin, &QToolButton::clicked, this, [this](bool isOn) { m_actions.setPinned(isOn); });
    auto* const add = button("plus", qtr("Save the desk as another layout"));
    connect(add, &QToolButton::clicked, this, [this] { ask(Typing::newLayout); });
    auto* const more = button("dots", qtr("Change this layout"));
    connect(more, &QToolButton::clicked, this, [this, more] {
        QMenu menu(this);
        menu.addAction(qtr("&Rename…"), this, [this] { ask(Typing::newName); });
        menu.addAction(qtr("&Delete"), this, [this] { remove(); });
        menu.exec(more->mapToGlobal(QPoint(0, more->height())));
    });
    row->addWidget(title);
    row->addSpacing(points(8));
    row->addWidget(m_box, 1);
    for (QWidget* const control : {m_pin, add, more}) {
        row->addWidget(control);
    }
    group->addLayout(row);
    auto* const below = new QVBoxLayout;
    below->setContentsMargins(points(margin), 0, points(margin), 0);
    m_name = new QLineEdit(this);
    m_name->setMinimumHeight(points(controlSide));
    m_name->installEventFilter(this);
    m_name->hide();
    below->addWidget(m_name);
    m_problem = new Label(Label::Role::problem, this);
    m_problem->setContentsMargins(points(2), points(4), 0, points(10));
    m_problem->hide();
    below->addWidget(m_problem);
    group->addLayout(below);
    connect(m_name, &QLineEdit::textChanged, this, [this] { showProblem(problemWithTyped()); });
    connect(m_name, &QLineEdit::returnPressed, this, [this] { accept(); });
}

void LayoutRow::setLayouts(const PanelContent::Layouts& layouts) {
    // A name that is being typed belongs to the layout that was active.
    if (m_typing == Typing::newName && layouts.active != m_active) {
        endTyping();
    }
    m_active = layouts.active;
    QStringList names;
    for (const std::string& name : layouts.names) {
        names.append(qt(name));
    }
    QStringList shown;
    for (int i = 0; i < m_box->count(); ++i) {
        shown.append(m_box->itemText(i));
    }
    const QSignalBlocker quiet(m_box);
    if (names != shown) {
        m_box->clear();
        m_box->addItems(names);
    }
    m_box->setCurrentIndex(static_cast<int>(names.indexOf(qt(layouts.active))));
    m_pin->setChecked(layouts.isPinned);
    m_pin->setText(layouts.isPinned ? qtr("Learn this layout again") : qtr("Keep this layout as it is"));
}

void LayoutRow::ask(Typing what) {
    if (m_typing == what) {
        endTyping();
        return;
    }
    m_typing = what;
    const QString text =
        what == Typing::newLayout ? qtr("Name of the new layout") : qtr("Name of this layout");
    m_name->setPlaceholderText(text);
    m_name->setAccessibleName(text);
    m_name->setText(what == Typing::newName ? qt(m_active) : QString());
    m_name->show();
    layout()->setContentsMargins(0, 0, 0, Metrics::points(*this, 10));
    m_name->selectAll();
    m_name->setFocus();
}

void LayoutRow::endTyping() {
    m_typing = Typing::nothing;
    m_name->clear();
    m_name->hide();
    layout()->setContentsMargins(0, 0, 0, 0);
}

std::string LayoutRow::typedName() const {
    return m_name->text().trimmed().toStdString();
}

PanelActions::Problem LayoutRow::problemWithTyped() const {
    const std::string name = typedName();
    if (name.empty() || (m_typing == Typing::newName && name == m_active)) {
        return std::nullopt;
    }
    return m_typing == Typing::newName ? m_actions.problemWithLayoutRename(name)
                                       : m_actions.problemWithLayoutName(name);
}

void LayoutRow::accept() {
    const std::string name = typedName();
    if (name.empty() || problemWithTyped()) {
        return;
    }
    if (m_typing == Typing::newLayout) {
        m_actions.saveLayoutAs(name);
    } else if (name != m_active) {
        if (const auto problem = m_actions.renameLayout(m_active, name)) {
            showProblem(problem);
            return;
        }
    }
    endTyping();
}

void LayoutRow::remove() {
    const std::string name = m_active;
    endTyping();
    const auto problem = m_actions.removeLayout(name);
    showProblem(problem);
    if (!problem) {
        onRemoved(name);
    }
}

void LayoutRow::showProblem(const PanelActions::Problem& problem) {
    m_problem->show(qt(problem.value_or("")));
    m_problem->setVisible(problem.has_value());
}

// Escape first takes back what was typed, and only then closes the panel.
bool LayoutRow::eventFilter(QObject* object, QEvent* event) {
    if (object == m_name && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        endTyping();
        return true;
    }
    return QWidget::eventFilter(object, event);
}

} // namespace vantrel

#include "Vantrel/interface/editor/EditorToolbar.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "VantrelCore/scenes/SceneIconography.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace vantrel {

// The scene's symbol.
class EditorToolbar::Sign final : public QWidget {
public:
    explicit Sign(QWidget* parent) : QWidget(parent) {
        const int side = Metrics::points(*this, 20);
        setFixedSize(side, side);
    }

    void show(const std::string& symbol) {
        m_symbol = symbol;
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        Symbols::paint(painter, m_symbol, rect(), DeskColors::of(palette()).accent);
    }

private:
    std::string m_symbol = "scenes";
};

EditorToolbar::EditorToolbar(Actions actions, QWidget* parent)
    : QWidget(parent), m_actions(std::move(actions)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(buttons());
    m_nameLine = nameLine();
    column->addWidget(m_nameLine);
}

int EditorToolbar::points(double length) const {
    return Metrics::points(*this, length);
}

QWidget* EditorToolbar::buttons() {
    auto* const bar = new QWidget(this);
    m_rows = new QBoxLayout(QBoxLayout::LeftToRight, bar);
    m_rows->setContentsMargins(points(14), points(12), points(14), points(12));
    m_rows->setSpacing(points(8));
    auto* const row = new QHBoxLayout;
    auto* const deeds = new QHBoxLayout;
    for (QHBoxLayout* const part : {row, deeds}) {
        part->setSpacing(points(8));
        m_rows->addLayout(part);
    }
    m_rows->setStretch(0, 1);
    const auto symbol = [&](const char* name, const QString& text, const std::function<void()>& act) {
        auto* const made = new SymbolButton(name, text, 30, bar);
        connect(made, &QToolButton::clicked, this, act);
        return made;
    };
    const auto button = [&](const QString& text, const std::function<void()>& act, const char* sign = "") {
        auto* const made = new ActionButton(sign, ActionButton::Form::plain, bar);
        made->setTexts(text, "");
        made->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        if (act) {
            connect(made, &QPushButton::clicked, this, act);
        }
        return made;
    };
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    auto* const back = symbol(isRightToLeft ? "right" : "left", qtr("Back to the scenes"), m_actions.back);
    m_sign = new Sign(bar);
    m_name = new Label(Label::Role::heading, bar);
    m_name->setElided(true);
    m_changes = new Label(Label::Role::second, bar);
    m_changes->setElided(true);
    m_undo = symbol("undo", qtr("Undo the last change"), m_actions.undo);
    m_redo = symbol("redo", qtr("Redo the change"), m_actions.redo);
    for (SymbolButton* const framed : {m_undo, m_redo}) {
        framed->setAutoRaise(false);
    }
    m_take = button(qtr("Take from the desk"), {}, "download");
    auto* const menu = new QMenu(m_take);
    menu->addAction(qtr("&All windows"), this, m_actions.takeAll);
    m_takeSelected = menu->addAction(qtr("Only the &selected windows"), this, m_actions.takeSelected);
    m_take->setMenu(menu);
    m_try = button(qtr("Try it"), m_actions.tryOrGoBack, "play");
    m_discard = button(qtr("Discard"), m_actions.discard);
    m_saveAs = button(qtr("Save as new…"), [this] { askName(!m_nameLine->isVisible()); });
    m_save = button(qtr("Save"), m_actions.save);
    m_save->setFilled(true);
    row->addWidget(back);
    row->addWidget(m_sign);
    row->addWidget(m_name);
    row->addSpacing(points(4));
    row->addWidget(m_changes);
    row->addStretch(1);
    row->addWidget(m_undo);
    row->addWidget(m_redo);
    deeds->addSpacing(points(8));
    deeds->addStretch(1);
    deeds->addWidget(m_take);
    deeds->addWidget(m_try);
    deeds->addSpacing(points(8));
    deeds->addWidget(m_discard);
    deeds->addWidget(m_saveAs);
    deeds->addWidget(m_save);
    return bar;
}

QWidget* EditorToolbar::nameLine() {
    auto* const line = new QWidget(this);
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(points(20), 0, points(14), points(12));
    row->setSpacing(points(8));
    m_newName = new QLineEdit(line);
    m_newName->setPlaceholderText(qtr("Name of the new scene"));
    m_newName->setAccessibleName(qtr("Name of the new scene"));
    m_newName->setMinimumHeight(points(30));
    m_newName->setMaximumWidth(points(280));
    m_newName->installEventFilter(this);
    m_problem = new Label(Label::Role::problem, line);
    auto* const save = new ActionButton("", ActionButton::Form::plain, line);
    save->setTexts(qtr("Save as new"), "");
    auto* const cancel = new ActionButton("", ActionButton::Form::plain, line);
    cancel->setTexts(qtr("Cancel"), "");
    for (ActionButton* const button : {save, cancel}) {
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    connect(m_newName, &QLineEdit::textChanged, this, [this](const QString& typed) {
        const QString name = typed.trimmed();
        m_problem->show(name.isEmpty() ? QString()
                                       : qt(m_actions.problemWithName(name.toStdString()).value_or("")));
    });
    connect(m_newName, &QLineEdit::returnPressed, this, [this] { saveAsNew(); });
    connect(save, &QPushButton::clicked, this, [this] { saveAsNew(); });
    connect(cancel, &QPushButton::clicked, this, [this] { askName(false); });
    row->addWidget(m_newName, 2);
    row->addWidget(m_problem, 3);
    row->addWidget(save);
    row->addWidget(cancel);
    line->hide();
    return line;
}

void EditorToolbar::askName(bool asks) {
    m_nameLine->setVisible(asks);
    if (asks) {
        m_newName->setFocus(Qt::OtherFocusReason);
        m_newName->selectAll();
    } else {
        m_saveAs->setFocus(Qt::OtherFocusReason);
    }
}

void EditorToolbar::saveAsNew() {
    const std::string name = m_newName->text().trimmed().toStdString();
    if (name.empty()) {
        m_newName->setFocus(Qt::OtherFocusReason);
        return;
    }
    const auto problem = m_actions.saveAsNew(name);
    if (problem) {
        m_problem->show(qt(*problem));
    }
}

void EditorToolbar::fold() {
    constexpr double roomForName = 120;
    int needed = points(roomForName);
    for (int i = 0; i < m_rows->count(); ++i) {
        needed += m_rows->itemAt(i)->minimumSize().width();
    }
    m_rows->setDirection(needed > width() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void EditorToolbar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fold();
}

void EditorToolbar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fold();
    }
}

bool EditorToolbar::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        askName(false);
        return true;
    }
    return QWidget::eventFilter(object, event);
}

void EditorToolbar::show(const Content& content) {
    m_sign->show(std::string(Symbols::ofSystemSymbol(SceneIconography::symbol(content.name))));
    m_name->show(qt(content.name));
    m_changes->show(content.isDirty
                        ? qt(trn("{} change", "{} changes", static_cast<std::int64_t>(content.changes)))
                        : QString());
    m_undo->setEnabled(content.canUndo);
    m_redo->setEnabled(content.canRedo);
    m_take->setEnabled(content.canChange);
    m_takeSelected->setEnabled(content.hasSelection);
    m_save->setEnabled(content.canSave && content.isDirty);
    m_discard->setEnabled(content.isDirty);
    m_try->setTexts(content.isTrying ? qtr("Go back") : qtr("Try it"), "");
    m_try->setSymbol(content.isTrying ? "undo" : "play");
}

} // namespace vantrel

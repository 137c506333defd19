#include "Vantrel/interface/controls/NameField.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStyleOptionFrame>

namespace vantrel {

NameField::NameField(const QString& accessibleName, double factor, QWidget* parent)
    : QLineEdit(parent), m_factor(factor), m_problem(new Label(Label::Role::problem, parent)) {
    setFrame(false);
    setAccessibleName(accessibleName);
    setAlignment(Qt::AlignAbsolute | Qt::AlignVCenter | (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_problem->hide();
    dress();
    connect(this, &QLineEdit::textEdited, this,
            [this](const QString& text) { showProblem(problemWith(text.trimmed().toStdString())); });
    connect(this, &QLineEdit::editingFinished, this, [this] { finish(); });
}

void NameField::dress() {
    m_isDressing = true;
    setFont(Metrics::scaled(QApplication::font(), m_factor, QFont::DemiBold));
    // Flush with the lines around it in every style.
    QStyleOptionFrame frame;
    frame.initFrom(this);
    constexpr int someWidth = 200;
    constexpr int someHeight = 30;
    frame.rect = QRect(0, 0, someWidth, someHeight);
    const int padding = style()->subElementRect(QStyle::SE_LineEditContents, &frame, this).left();
    constexpr int ownMargin = 2;
    const int before = -padding - ownMargin;
    setTextMargins(isRightToLeft() ? 0 : before, 0, isRightToLeft() ? before : 0, 0);
    QPalette clear = QApplication::palette();
    clear.setColor(QPalette::Base, Qt::transparent);
    setPalette(clear);
    m_isDressing = false;
}

QSize NameField::sizeHint() const {
    return {fontMetrics().horizontalAdvance(m_name) + Metrics::points(QApplication::font(), 12),
            QLineEdit::sizeHint().height()};
}

void NameField::setName(const QString& name) {
    if (name == m_name) {
        return;
    }
    m_name = name;
    updateGeometry();
    if (!isModified()) {
        showName();
    }
}

void NameField::setEditable(bool isEditable) {
    setReadOnly(!isEditable);
    setFocusPolicy(isEditable ? Qt::StrongFocus : Qt::NoFocus);
}

void NameField::startEditing() {
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void NameField::showName() {
    const int room = width() - Metrics::points(QApplication::font(), 6);
    const QString shown = hasFocus() ? m_name : fontMetrics().elidedText(m_name, Qt::ElideRight, room);
    setText(shown);
    setCursorPosition(0);
    setToolTip(shown != m_name ? m_name : isReadOnly() ? QString() : qtr("Click to rename"));
}

void NameField::showProblem(const Problem& problem) {
    m_problem->show(qt(problem.value_or("")));
    m_problem->setVisible(problem.has_value());
}

// Also called when the focus leaves; a name that is refused stays to be corrected.
void NameField::finish() {
    if (isModified()) {
        const QString typed = text().trimmed();
        const auto problem = typed == m_name ? std::nullopt : rename(typed.toStdString());
        showProblem(problem);
        if (problem) {
            return;
        }
        m_name = typed;
    }
    setModified(false);
    showName();
}

void NameField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!isModified()) {
        setText(m_name);
    }
}

void NameField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isModified()) {
        setText(m_name);
        showProblem(std::nullopt);
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void NameField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    if (!isModified() && !hasFocus()) {
        showName();
    }
}

void NameField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    const auto type = event->type();
    if (!m_isDressing &&
        (type == QEvent::ApplicationPaletteChange || type == QEvent::ApplicationFontChange)) {
        dress();
    }
}

} // namespace vantrel

#include "Vantrel/interface/controls/Label.h"

#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"

#include <QApplication>
#include <QEvent>

namespace vantrel {

Label::Label(Role role, QWidget* parent) : QLabel(parent), m_role(role) {
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    // On a button it would be the button's.
    setForegroundRole(QPalette::WindowText);
    align();
    dress();
}

// QLabel aligns each text by its own script. A row keeps one edge only if all follow the layout.
void Label::align() {
    setAlignment(Qt::AlignAbsolute | Qt::AlignVCenter |
                 (layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft));
}

void Label::setElided(bool isElided) {
    m_isElided = isElided;
    setWordWrap(!isElided);
    fit();
}

void Label::show(const QString& text) {
    if (m_full != text) {
        m_full = text;
        setAccessibleName(text);
        updateGeometry();
        fit();
    }
}

QSize Label::sizeHint() const {
    return m_isElided ? QSize(fontMetrics().horizontalAdvance(m_full) + 2, fontMetrics().height())
                      : QLabel::sizeHint();
}

QSize Label::minimumSizeHint() const {
    return m_isElided
               ? QSize(std::min(sizeHint().width(), Metrics::points(*this, 24)), fontMetrics().height())
               : QLabel::minimumSizeHint();
}

void Label::fit() {
    const QString shown =
        m_isElided && width() > 0 ? fontMetrics().elidedText(m_full, Qt::ElideRight, width()) : m_full;
    if (text() != shown) {
        setText(shown);
    }
    setToolTip(shown == m_full ? QString() : m_full);
}

void Label::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    if (m_isElided) {
        fit();
    }
}

void Label::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::LayoutDirectionChange) {
        align();
    }
    if (!m_isDressing &&
        (type == QEvent::PaletteChange || type == QEvent::FontChange ||
         type == QEvent::ApplicationPaletteChange || type == QEvent::ApplicationFontChange)) {
        dress();
    }
}

void Label::dress() {
    m_isDressing = true;
    const QFont font = QApplication::font();
    const auto colors = DeskColors::of(QApplication::palette());
    QColor color = colors.text;
    switch (m_role) {
    case Role::title:
        setFont(Metrics::scaled(font, 1.5, QFont::DemiBold));
        break;
    case Role::heading:
        setFont(Metrics::scaled(font, 1.15, QFont::DemiBold));
        break;
    case Role::group:
        setFont(Metrics::scaled(font, 0.92, QFont::DemiBold));
        color = colors.secondText;
        break;
    case Role::text:
        setFont(font);
        break;
    case Role::strong:
        setFont(Metrics::scaled(font, 1, QFont::Medium));
        break;
    case Role::quiet:
        setFont(font);
        color = colors.secondText;
        break;
    case Role::second:
        setFont(Metrics::scaled(font, 0.92, QFont::Normal));
        color = colors.secondText;
        break;
    case Role::problem:
        setFont(Metrics::scaled(font, 0.92, QFont::Normal));
        color = colors.error;
        break;
    case Role::warning:
        setFont(Metrics::scaled(font, 0.92, QFont::Normal));
        color = colors.warning;
        break;
    }
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::WindowText, color);
    setPalette(palette);
    m_isDressing = false;
    fit();
}

} // namespace vantrel

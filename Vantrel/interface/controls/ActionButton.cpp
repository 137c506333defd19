#include "Vantrel/interface/controls/ActionButton.h"

#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QPainter>
#include <QStyleOptionButton>

#include <algorithm>

namespace vantrel {

namespace {

constexpr double padding = 10;
constexpr double narrowPadding = 8;
// A longer second text is elided, so that neighbours keep theirs.
constexpr double widestDetail = 86;
constexpr double symbolSide = 16;
// For the sign of a menu.
constexpr double menuSide = 18;
// In a line without a frame, the text stands under those of the rows above.
double symbolGap(const ActionButton& button) {
    return button.isFlat() ? 12 : 8;
}

} // namespace

ActionButton::ActionButton(std::string symbol, Form form, QWidget* parent)
    : QPushButton(parent), m_symbol(std::move(symbol)), m_form(form) {
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ActionButton::setTexts(const QString& title, const QString& detail) {
    if (m_title == title && m_detail == detail) {
        return;
    }
    m_title = title;
    m_detail = detail;
    setAccessibleName(title);
    setAccessibleDescription(detail);
    updateGeometry();
    update();
}

void ActionButton::setFilled(bool isFilled) {
    m_isFilled = isFilled;
    updateGeometry();
    update();
}

void ActionButton::setSymbol(const std::string& symbol) {
    m_symbol = symbol;
    update();
}

QFont ActionButton::titleFont() const {
    return Metrics::scaled(font(), 1, m_isFilled && isEnabled() ? QFont::Medium : QFont::Normal);
}

QFont ActionButton::detailFont() const {
    return Metrics::scaled(font(), 0.85, QFont::Medium);
}

QSize ActionButton::sizeHint() const {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    const QFontMetrics detail(detailFont());
    const int title = QFontMetrics(titleFont()).horizontalAdvance(m_title) + 2;
    const int icon = m_symbol.empty() ? 0 : points(symbolSide + symbolGap(*this));
    if (m_form == Form::high) {
        return {points(2 * narrowPadding) + icon +
                    std::max(title, std::min(detail.horizontalAdvance(m_detail), points(widestDetail))) + 1,
                points(44)};
    }
    const int more = (m_detail.isEmpty() ? 0 : points(12) + detail.horizontalAdvance(m_detail)) +
                     (menu() == nullptr ? 0 : points(menuSide));
    return {points(2 * padding + 4) + icon + title + more, points(m_form == Form::wide ? 34 : 30)};
}

QSize ActionButton::minimumSizeHint() const {
    const int icon = m_symbol.empty() ? 0 : Metrics::points(*this, symbolSide + symbolGap(*this));
    return {Metrics::points(*this, 2 * padding) + icon +
                QFontMetrics(titleFont()).horizontalAdvance(m_title) + 2,
            sizeHint().height()};
}

void ActionButton::paintGround(QPainter& painter) {
    if (!m_isFilled || !isEnabled()) {
        QStyleOptionButton option;
        initStyleOption(&option);
        option.features.setFlag(QStyleOptionButton::HasMenu, false);
        option.text.clear();
        option.icon = {};
        style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
        if (hasFocus() && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
        }
        return;
    }
    QColor fill = palette().color(QPalette::Highlight);
    if (isDown()) {
        fill = fill.darker(118);
    } else if (underMouse()) {
        fill = DeskColors::mix(fill, Qt::white, 0.1);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::HighlightedText), 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), 4, 4);
    }
}

void ActionButton::paintMenuSign(QPainter& painter) {
    const int side = Metrics::points(*this, 12);
    const QRect place(width() - Metrics::points(*this, padding) - side, (height() - side) / 2, side, side);
    Symbols::paint(
        painter, "down", QStyle::visualRect(layoutDirection(), rect(), place),
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
}

void ActionButton::paintEvent(QPaintEvent* /*event*/) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    const auto colors = DeskColors::of(palette());
    const bool isFilled = m_isFilled && isEnabled();
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor title =
        isFilled ? palette().color(QPalette::HighlightedText) : palette().color(group, QPalette::ButtonText);
    QColor detail = isFilled ? DeskColors::translucent(title, 0.92) : colors.secondText;
    if (!isEnabled()) {
        detail = title;
    }
    const int side = points(m_form == Form::high ? narrowPadding : padding);
    QRect area = rect().adjusted(side, 0, -side, 0);
    const auto visual = [this](const QRect& rect) {
        return QStyle::visualRect(layoutDirection(), this->rect(), rect);
    };
    const auto write = [&](const QRect& rect, const QString& text, const QFont& font, const QColor& color,
                           Qt::Alignment alignment) {
        painter.setFont(font);
        painter.setPen(color);
        // The text keeps its own direction; otherwise, a leading number would move to the end.
        painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        painter.drawText(visual(rect),
                         static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment)),
                         QFontMetrics(font).elidedText(text, Qt::ElideRight, rect.width()));
    };
    if (m_form == Form::plain) {
        const int width = QFontMetrics(titleFont()).horizontalAdvance(m_title) + 2 +
                          (m_symbol.empty() ? 0 : points(symbolSide + symbolGap(*this)));
        area = QRect(0, 0, std::min(width, area.width()), height());
        area.moveCenter(rect().center());
        if (menu() != nullptr) {
            paintMenuSign(painter);
            area.translate(-points(menuSide) / 2, 0);
        }
    }
    if (!m_symbol.empty()) {
        const int symbol = points(symbolSide);
        const QRect square(area.left(), (height() - symbol) / 2, symbol, symbol);
        const QColor tone = m_symbol == "warn" ? colors.warning : m_symbol == "check" ? colors.good : title;
        Symbols::paint(painter, m_symbol, visual(square), tone);
        area.setLeft(area.left() + points(symbolSide + symbolGap(*this)));
    }
    const QFont forTitle = titleFont();
    if (m_form == Form::high) {
        const QFontMetrics titleMetrics(forTitle);
        const QFontMetrics detailMetrics(detailFont());
        const int top = (height() - titleMetrics.height() - detailMetrics.height()) / 2;
        write({area.left(), top, area.width(), titleMetrics.height()}, m_title, forTitle, title,
              Qt::AlignLeft | Qt::AlignVCenter);
        write({area.left(), top + titleMetrics.height(), area.width(), detailMetrics.height()}, m_detail,
              detailFont(), detail, Qt::AlignLeft | Qt::AlignVCenter);
        return;
    }
    write(area, m_title, forTitle, title, Qt::AlignLeft | Qt::AlignVCenter);
    if (!m_detail.isEmpty()) {
        const int taken = QFontMetrics(forTitle).horizontalAdvance(m_title) + points(12);
        write(area.adjusted(taken, 0, 0, 0), m_detail, detailFont(), detail,
              Qt::AlignRight | Qt::AlignVCenter);
    }
}

} // namespace vantrel

#include "Vantrel/interface/controls/SymbolButton.h"

#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QPainter>

namespace vantrel {

SymbolButton::SymbolButton(const std::string& symbol, const QString& text, double side, QWidget* parent)
    : QToolButton(parent), m_symbol(symbol), m_side(side) {
    setFocusPolicy(Qt::StrongFocus);
    setAutoRaise(true);
    setText(text);
}

void SymbolButton::setSymbol(const std::string& symbol) {
    m_symbol = symbol;
    update();
}

void SymbolButton::setText(const QString& text) {
    setToolTip(text);
    setAccessibleName(text);
}

QSize SymbolButton::sizeHint() const {
    const int side = Metrics::points(*this, m_side);
    return {side, side};
}

void SymbolButton::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plate = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (isChecked() || isDown() || underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isChecked() ? colors.selection : colors.hover);
        painter.drawRoundedRect(plate, 6, 6);
    }
    if (!autoRaise() && !isChecked()) {
        painter.setPen(QPen(DeskColors::translucent(colors.text, 0.14), 1));
        painter.setBrush(palette().color(QPalette::Button));
        painter.drawRoundedRect(plate.adjusted(-0.5, -0.5, 0.5, 0.5), 6, 6);
    }
    if (hasFocus()) {
        painter.setPen(QPen(colors.accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(plate, 6, 6);
    }
    const double side = Metrics::points(*this, m_side >= 30 ? 16 : 14);
    QRectF square(0, 0, side, side);
    square.moveCenter(QRectF(rect()).center());
    Symbols::paint(painter, m_symbol, square,
                   !isEnabled()  ? palette().color(QPalette::Disabled, QPalette::ButtonText)
                   : isChecked() ? colors.accent
                                 : colors.text);
}

} // namespace vantrel

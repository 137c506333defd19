#include "Vantrel/interface/editor/ZoneButton.h"

#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"

#include <QPainter>

namespace vantrel {

ZoneButton::ZoneButton(Zone zone, QWidget* parent) : QToolButton(parent), m_zone(zone) {
    setFocusPolicy(Qt::StrongFocus);
    const QString name = QString::fromUtf8(Zones::name(zone));
    setToolTip(name);
    setAccessibleName(name);
}

QSize ZoneButton::sizeHint() const {
    return {Metrics::points(*this, 40), Metrics::points(*this, 28)};
}

void ZoneButton::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(DeskColors::translucent(colors.text, 0.16), 1));
    painter.setBrush(isDown() || underMouse() ? DeskColors::mix(palette().color(QPalette::Button),
                                                                colors.text, isDown() ? 0.12 : 0.06)
                                              : palette().color(QPalette::Button));
    painter.drawRoundedRect(plate, 6, 6);
    if (hasFocus()) {
        painter.setPen(QPen(colors.accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(plate.adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    }
    QRectF display(0, 0, Metrics::points(*this, 22), Metrics::points(*this, 15));
    display.moveCenter(QRectF(rect()).center());
    const QColor ink = isEnabled() ? colors.secondText : palette().color(QPalette::Disabled, QPalette::Text);
    painter.setPen(QPen(ink, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(display, 2.5, 2.5);
    const QRectF inside = display.adjusted(2, 2, -2, -2);
    const Rect part = Zones::frame(m_zone, {{inside.x(), inside.y()}, {inside.width(), inside.height()}}, 1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawRoundedRect(QRectF(part.minX(), part.minY(), part.width(), part.height()), 1, 1);
}

} // namespace vantrel

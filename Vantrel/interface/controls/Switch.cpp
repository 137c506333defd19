#include "Vantrel/interface/controls/Switch.h"

#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"

#include <QPainter>

namespace vantrel {

Switch::Switch(QWidget* parent) : QCheckBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

// With room for the ring of the focus.
QSize Switch::sizeHint() const {
    return {Metrics::points(*this, 36) + 8, Metrics::points(*this, 20) + 8};
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track = QRectF(rect()).adjusted(4, 4, -4, -4);
    const double height = track.height();
    const bool isOn = isChecked();
    const bool knobAtRight = isOn == (layoutDirection() == Qt::LeftToRight);
    painter.setOpacity(isEnabled() ? 1 : 0.42);
    painter.setPen(isOn ? QPen(Qt::NoPen) : QPen(colors.secondText, 1.5));
    painter.setBrush(isOn ? palette().brush(QPalette::Highlight) : QBrush(Qt::NoBrush));
    const QRectF body = isOn ? track : track.adjusted(0.75, 0.75, -0.75, -0.75);
    painter.drawRoundedRect(body, body.height() / 2, body.height() / 2);

    const QColor mark = isOn ? palette().color(QPalette::HighlightedText) : colors.secondText;
    const double inset = height * (isOn ? 0.1 : 0.15);
    const double knob = height - 2 * inset;
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark);
    painter.drawEllipse(QRectF(knobAtRight ? track.right() - inset - knob : track.left() + inset,
                               track.top() + inset, knob, knob));
    // On and off are told apart by shape too: | and O.
    const QPointF sign(knobAtRight ? track.left() + height * 0.46 : track.right() - height * 0.46,
                       track.center().y());
    painter.setPen(QPen(mark, isOn ? 2 : 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    if (isOn) {
        painter.drawLine(sign - QPointF(0, height * 0.17), sign + QPointF(0, height * 0.17));
    } else {
        painter.drawEllipse(sign, height * 0.16, height * 0.16);
    }
    if (hasFocus()) {
        painter.setPen(QPen(colors.accent, 2));
        painter.drawRoundedRect(track.adjusted(-2.5, -2.5, 2.5, 2.5), height / 2 + 2.5, height / 2 + 2.5);
    }
}

} // namespace vantrel

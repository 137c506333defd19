#include "Vantrel/interface/PhaseIcon.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <array>

namespace vantrel::PhaseIcon {

namespace {

// The icon is drawn on a square of this many units.
constexpr double side = 24;
constexpr std::array sizes{16, 22, 24, 32, 48};

struct Colors {
    QColor body;
    QColor rim;
    // Opaque, and the most visible part on a panel of the other tone.
    QColor pane;
};

Colors colors(Tone tone) {
    const QColor dark(40, 44, 52);
    const QColor light(240, 242, 246);
    return tone == Tone::dark ? Colors{dark, QColor(255, 255, 255, 200), light}
                              : Colors{light, QColor(0, 0, 0, 150), dark};
}

// The color of the badge at the lower right; invalid when there is none.
struct Sign {
    QColor operator()(const Phase::Empty& /*empty*/) const { return {}; }

    QColor operator()(const Phase::Saved& /*saved*/) const { return {}; }

    QColor operator()(const Phase::Restoring& /*restoring*/) const { return {70, 130, 255}; }

    QColor operator()(const Phase::Restored& /*restored*/) const { return {52, 190, 100}; }

    QColor operator()(const Phase::Off& /*off*/) const { return {}; }

    QColor operator()(const Phase::NeedsPermission& /*needs*/) const { return {240, 150, 30}; }
};

void paint(QPainter& painter, const Phase& phase, Tone tone) {
    const auto [body, rim, pane] = colors(tone);
    QPainterPath behind;
    behind.addRoundedRect(QRectF(2.5, 3.5, 13, 10), 2, 2);
    QPainterPath front;
    front.addRoundedRect(QRectF(8, 9, 14, 11.5), 2, 2);
    QPainterPath title;
    title.addRoundedRect(QRectF(8, 9, 14, 4.5), 2, 2);

    // Outlines only: nothing is remembered for this desk, or the program is switched off.
    const bool isHollow = phase.is<Phase::Empty>() || phase.is<Phase::Off>();
    const QPen outer(rim, 3.6);
    painter.setBrush(Qt::NoBrush);
    for (const auto* const shape : {&behind, &front}) {
        painter.setPen(outer);
        painter.drawPath(*shape);
    }
    if (!isHollow) {
        painter.fillPath(behind, pane);
    }
    painter.setPen(QPen(body, 1.6));
    painter.drawPath(behind);
    if (!isHollow) {
        painter.fillPath(front, pane);
        painter.fillPath(title, body);
    }
    painter.drawPath(front);
    if (phase.is<Phase::Off>()) {
        painter.setPen(QPen(rim, 4.4, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(4, 21), QPointF(20.5, 3.5));
        painter.setPen(QPen(body, 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(4, 21), QPointF(20.5, 3.5));
    }
    if (const QColor sign = std::visit(Sign{}, phase.value); sign.isValid()) {
        painter.setPen(QPen(rim, 1.2));
        painter.setBrush(sign);
        painter.drawEllipse(QPointF(18.5, 18.5), 4.6, 4.6);
    }
}

} // namespace

Tone toneOfDesktop() {
    constexpr int middle = 128;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middle ? Tone::light : Tone::dark;
}

QIcon icon(const Phase& phase, Tone tone) {
    QIcon result;
    for (const int size : sizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / side, size / side);
        paint(painter, phase, tone);
        painter.end();
        result.addPixmap(pixmap);
    }
    return result;
}

} // namespace vantrel::PhaseIcon

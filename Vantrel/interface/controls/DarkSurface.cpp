#include "Vantrel/interface/controls/DarkSurface.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

namespace vantrel::DarkSurface {

namespace {

const QColor background(28, 30, 36, 242);
const QColor border(255, 255, 255, 40);

} // namespace

QPalette palette(const QPalette& users) {
    QPalette palette(QColor(44, 47, 55), QColor(38, 40, 47));
    palette.setColor(QPalette::Base, QColor(28, 30, 36));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
    }
    palette.setColor(QPalette::Highlight, users.color(QPalette::Highlight));
    return palette;
}

void paint(QPainter& painter, QSize size, double radius) {
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(), size).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.fillPath(shape, background);
    painter.setPen(border);
    painter.drawPath(shape);
}

QBitmap mask(QSize size, double radius) {
    QBitmap mask(size);
    mask.clear();
    QPainter painter(&mask);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(), size).adjusted(0, 0, -1, -1), radius, radius);
    return mask;
}

QScreen* screen() {
    QScreen* const atPointer = QGuiApplication::screenAt(QCursor::pos());
    return atPointer != nullptr ? atPointer : QGuiApplication::primaryScreen();
}

} // namespace vantrel::DarkSurface

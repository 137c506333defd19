// Base class of icons that are painted at any size; pixmaps come from paint().
#pragma once

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace vantrel {

class PaintedIconEngine : public QIconEngine {
public:
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
};

} // namespace vantrel

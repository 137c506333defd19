#include "Vantrel/interface/pictures/Thumbnail.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QCoreApplication>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <QThreadPool>

namespace vantrel {

namespace {

constexpr double radius = 3;

// Filling `size`; null if the file is no picture that can be read.
QImage read(const QString& path, QSize size) {
    QImageReader reader(path);
    reader.setAutoTransform(true);
    if (const QSize full = reader.size(); full.isValid()) {
        reader.setScaledSize(full.scaled(size, Qt::KeepAspectRatioByExpanding));
    }
    return reader.read();
}

} // namespace

Thumbnail::Thumbnail(const std::string& path, QSize size, QWidget* parent) : QWidget(parent) {
    setFixedSize(size);
    load(path);
}

void Thumbnail::load(const std::string& path) {
    QThreadPool::globalInstance()->start([self = std::weak_ptr(m_self), file = qt(path),
                                          size = size() * devicePixelRatioF()] {
        // The application outlives the pool's work.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [self, image = read(file, size)] {
                if (const auto thumbnail = self.lock()) {
                    (*thumbnail)->m_image = image;
                    (*thumbnail)->m_isMissing = image.isNull();
                    (*thumbnail)->setToolTip(image.isNull() ? qtr("The picture cannot be read.") : QString());
                    (*thumbnail)->update();
                }
            },
            Qt::QueuedConnection);
    });
}

void Thumbnail::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath shape;
    shape.addRoundedRect(rect(), radius, radius);
    painter.fillPath(shape, colors.panel);
    if (m_isMissing) {
        const int side = std::min(width(), height()) / 2;
        Symbols::paint(painter, "warn",
                       QRect(rect().center() - QPoint(side / 2, side / 2), QSize(side, side)),
                       colors.warning);
    }
    if (!m_image.isNull()) {
        painter.setClipPath(shape);
        const QSizeF filled = QSizeF(m_image.size()).scaled(size(), Qt::KeepAspectRatioByExpanding);
        QRectF place(QPointF(), filled);
        place.moveCenter(QRectF(rect()).center());
        painter.drawImage(place, m_image);
    }
}

} // namespace vantrel

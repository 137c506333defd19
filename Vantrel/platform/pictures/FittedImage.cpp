#include "Vantrel/platform/pictures/FittedImage.h"

#include <QBuffer>
#include <QImageReader>

namespace vantrel {

QImage fittedImage(const QByteArray& file, QSize size) {
    QBuffer buffer;
    buffer.setData(file);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull() || size.isEmpty()) {
        return {};
    }
    // Crop before scaling: scaling up a whole picture of 20 by 20,000 pixels would take gigabytes.
    const QSize part = size.scaled(image.size(), Qt::KeepAspectRatio).expandedTo({1, 1});
    return image
        .copy((image.width() - part.width()) / 2, (image.height() - part.height()) / 2, part.width(),
              part.height())
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

} // namespace vantrel

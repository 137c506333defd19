#include "Vantrel/interface/desk/PictureIcons.h"

#include <QPixmap>

namespace vantrel {

QIcon PictureIcons::icon(const std::string& bundleID) {
    QIcon icon;
    for (const std::string& png : m_source(bundleID)) {
        QPixmap picture;
        if (picture.loadFromData(QByteArray::fromStdString(png), "PNG")) {
            icon.addPixmap(picture);
        }
    }
    return icon;
}

} // namespace vantrel

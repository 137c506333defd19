#include "Vantrel/platform/pictures/PictureFile.h"

#include <QFileInfo>
#include <QUrl>

namespace vantrel::PictureFile {

std::string url(const std::string& picture) {
    return picture.starts_with('/')
               ? QUrl::fromLocalFile(QString::fromStdString(picture)).toEncoded().toStdString()
               : picture;
}

std::string path(const std::string& picture) {
    const QUrl url(QString::fromStdString(picture));
    return url.isLocalFile() ? url.toLocalFile().toStdString() : picture;
}

bool isReadable(const std::string& picture) {
    const QFileInfo file(QString::fromStdString(path(picture)));
    return file.isFile() && file.isReadable();
}

} // namespace vantrel::PictureFile

#include "Vantrel/platform/pictures/PictureFile.h"

#include "Vantrel/platform/posix/FileDescriptor.h"

#include <QFile>
#include <QUrl>

#include <fcntl.h>
#include <sys/stat.h>

namespace vantrel::PictureFile {

namespace {

bool isAcceptable(const struct stat& file, std::size_t limit) {
    return S_ISREG(file.st_mode) && file.st_size >= 0 && static_cast<std::size_t>(file.st_size) <= limit;
}

// Checks before opening, because opening a device can have side effects, and again afterwards, because the
// file may have been replaced.
posix::FileDescriptor opened(const std::string& picture, std::size_t limit) {
    const std::string file = path(picture);
    struct stat found{};
    if (file.find('\0') != std::string::npos || stat(file.c_str(), &found) != 0 ||
        !isAcceptable(found, limit)) {
        return {};
    }
    auto descriptor = posix::FileDescriptor::open(file, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!descriptor.isOpen() || fstat(descriptor.get(), &found) != 0 || !isAcceptable(found, limit)) {
        return {};
    }
    return descriptor;
}

} // namespace

std::string url(const std::string& picture) {
    return picture.starts_with('/')
               ? QUrl::fromLocalFile(QString::fromStdString(picture)).toEncoded().toStdString()
               : picture;
}

std::string path(const std::string& picture) {
    const QUrl url(QString::fromStdString(picture));
    return url.isLocalFile() ? url.toLocalFile().toStdString() : picture;
}

bool isReadable(const std::string& picture, std::size_t limit) {
    return opened(picture, limit).isOpen();
}

std::optional<QByteArray> read(const std::string& picture, std::size_t limit) {
    const auto descriptor = opened(picture, limit);
    QFile file;
    if (!descriptor.isOpen() || !file.open(descriptor.get(), QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    // The file may be growing.
    const auto most = static_cast<qint64>(limit);
    QByteArray content = file.read(most + 1);
    return file.error() == QFile::NoError && content.size() <= most ? std::optional(std::move(content))
                                                                    : std::nullopt;
}

} // namespace vantrel::PictureFile

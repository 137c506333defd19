#include "Vantrel/platform/thumbnails/ThumbnailCache.h"

#include <QCryptographicHash>
#include <QFile>
#include <QImageReader>
#include <QTemporaryFile>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace vantrel {

namespace {

constexpr const char* uriKey = "Thumb::URI";
constexpr const char* modifiedKey = "Thumb::MTime";
constexpr const char* bytesKey = "Thumb::Size";
constexpr const char* widthKey = "Thumb::Image::Width";
constexpr const char* heightKey = "Thumb::Image::Height";

// With the version that counts: other limits may read what failed once.
constexpr const char* failures = "fail/vantrel-1";

constexpr std::array<std::pair<int, const char*>, 3> sizes{
    {{128, "normal"}, {256, "large"}, {512, "x-large"}}};

const char* folderFor(QSize size) {
    const int edge = ThumbnailCache::edgeFor(size);
    return std::ranges::find(sizes, edge, &std::pair<int, const char*>::first)->second;
}

// The folders belong to the user alone.
bool createFolder(const std::filesystem::path& folder) {
    std::error_code error;
    if (create_directories(folder, error)) {
        permissions(folder, std::filesystem::perms::owner_all, error);
    }
    return !error;
}

// The picture's file in the cache, if it is of this version; a null image otherwise.
QImage read(const std::filesystem::path& file, const ThumbnailCache::Picture& picture, int edge) {
    QImageReader reader(QString::fromStdString(file.string()), "png");
    const QSize size = reader.size();
    if (!size.isValid() || std::max(size.width(), size.height()) > edge) {
        return {};
    }
    // QImageReader::text() does not know keys with colons.
    QImage image = reader.read();
    const bool isOfPicture = image.text(uriKey) == ThumbnailCache::uriOf(picture.path) &&
                             image.text(modifiedKey) == QString::number(picture.modified);
    return isOfPicture ? image : QImage();
}

} // namespace

QString ThumbnailCache::uriOf(const std::string& path) {
    return QString::fromLatin1(QUrl::fromLocalFile(QString::fromStdString(path)).toEncoded());
}

int ThumbnailCache::edgeFor(QSize size) {
    const int needed = std::max(size.width(), size.height());
    const auto found = std::ranges::find_if(sizes, [&](const auto& each) { return each.first >= needed; });
    return found == sizes.end() ? sizes.back().first : found->first;
}

std::filesystem::path ThumbnailCache::fileFor(const Picture& picture, const char* folder) const {
    const QByteArray digest =
        QCryptographicHash::hash(uriOf(picture.path).toLatin1(), QCryptographicHash::Md5).toHex();
    return m_folder / folder / (digest.toStdString() + ".png");
}

std::optional<ThumbnailCache::Entry> ThumbnailCache::find(const Picture& picture, QSize size) const {
    if (m_folder.empty()) {
        return std::nullopt;
    }
    Entry entry{.image = read(fileFor(picture, folderFor(size)), picture, edgeFor(size)), .fullSize = {}};
    if (entry.image.isNull()) {
        return std::nullopt;
    }
    entry.fullSize = QSize(entry.image.text(widthKey).toInt(), entry.image.text(heightKey).toInt());
    return entry;
}

void ThumbnailCache::mark(QImage& image, const Picture& picture) {
    image.setText(uriKey, uriOf(picture.path));
    image.setText(modifiedKey, QString::number(picture.modified));
    image.setText(bytesKey, QString::number(picture.bytes));
    image.setText("Software", "vantrel");
}

void ThumbnailCache::keep(const Picture& picture, QSize size, const QImage& image, QSize fullSize) const {
    const int edge = edgeFor(size);
    // Thumbnails of thumbnails, and of pictures that are as small, are not kept.
    if (m_folder.empty() || std::max(fullSize.width(), fullSize.height()) <= edge ||
        picture.path.starts_with(m_folder.string() + "/")) {
        return;
    }
    QImage kept = image.convertToFormat(QImage::Format_ARGB32);
    if (std::max(kept.width(), kept.height()) > edge) {
        kept = kept.scaled(edge, edge, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    mark(kept, picture);
    kept.setText(widthKey, QString::number(fullSize.width()));
    kept.setText(heightKey, QString::number(fullSize.height()));
    write(fileFor(picture, folderFor(size)), kept);
}

bool ThumbnailCache::hasFailed(const Picture& picture) const {
    return !m_folder.empty() && !read(fileFor(picture, failures), picture, 1).isNull();
}

void ThumbnailCache::noteFailure(const Picture& picture) const {
    if (!m_folder.empty()) {
        QImage dot(1, 1, QImage::Format_ARGB32);
        dot.fill(Qt::transparent);
        mark(dot, picture);
        write(fileFor(picture, failures), dot);
    }
}

// Readers see either no file or a whole one.
void ThumbnailCache::write(const std::filesystem::path& file, const QImage& image) {
    if (!createFolder(file.parent_path())) {
        return;
    }
    // Readable for the user alone.
    QTemporaryFile fresh(QString::fromStdString((file.parent_path() / "vantrel-XXXXXX").string()));
    if (!fresh.open() || !image.save(&fresh, "PNG") || !fresh.flush()) {
        return;
    }
    fresh.close();
    std::error_code error;
    rename(std::filesystem::path(fresh.fileName().toStdString()), file, error);
    fresh.setAutoRemove(static_cast<bool>(error));
}

} // namespace vantrel

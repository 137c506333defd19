#include "Vantrel/platform/thumbnails/ThumbnailStore.h"

#include <QCoreApplication>
#include <QImageReader>

#include <algorithm>
#include <chrono>
#include <sys/stat.h>
#include <utility>

namespace vantrel {

namespace {

constexpr int mostAtOnce = 2;
constexpr int idleMilliseconds = 2'000;
constexpr int mostWaitMilliseconds = 2'000;

// `image` filling `size`, its overhanging edges cut off.
QImage filling(const QImage& image, QSize size) {
    const QSize part = size.scaled(image.size(), Qt::KeepAspectRatio).expandedTo({1, 1});
    return image
        .copy((image.width() - part.width()) / 2, (image.height() - part.height()) / 2, part.width(),
              part.height())
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                 : QImage::Format_RGB32);
}

} // namespace

struct ThumbnailStore::Reader {
    ThumbnailCache cache;
    Limits limits;

    [[nodiscard]] FileThumbnail read(const std::string& file, QSize size) const {
        using State = FileThumbnail::State;
        struct stat found{};
        if (file.find('\0') != std::string::npos || stat(file.c_str(), &found) != 0) {
            return {.state = State::gone};
        }
        if (!S_ISREG(found.st_mode)) {
            return {.state = State::unreadable};
        }
        const ThumbnailCache::Picture picture{
            .path = file, .modified = found.st_mtime, .bytes = static_cast<std::uint64_t>(found.st_size)};
        if (const auto kept = cache.find(picture, size)) {
            return {.state = State::picture, .image = filling(kept->image, size), .fullSize = kept->fullSize};
        }
        return cache.hasFailed(picture) ? FileThumbnail{.state = State::unreadable} : decode(picture, size);
    }

private:
    [[nodiscard]] FileThumbnail decode(const ThumbnailCache::Picture& picture, QSize size) const {
        QImageReader reader(QString::fromStdString(picture.path));
        // By its content, whatever the file is called.
        reader.setDecideFormatFromContent(true);
        reader.setAutoTransform(true);
        const QSize full = reader.size();
        const auto pixels = static_cast<std::uint64_t>(std::max(0, full.width())) *
                            static_cast<std::uint64_t>(std::max(0, full.height()));
        if (picture.bytes > limits.bytes || pixels > limits.pixels) {
            cache.noteFailure(picture);
            return {.state = FileThumbnail::State::unreadable, .fullSize = full};
        }
        if (full.isValid()) {
            // Formats that can decode a smaller picture at once do so; twice as large looks better
            // afterwards.
            const int edge = 2 * ThumbnailCache::edgeFor(size);
            const QSize fitted = full.scaled(edge, edge, Qt::KeepAspectRatio).expandedTo({1, 1});
            if (fitted.width() < full.width()) {
                reader.setScaledSize(fitted);
            }
        }
        const QImage image = reader.read();
        if (image.isNull()) {
            // A plugin may be installed for what is not known today.
            if (reader.error() == QImageReader::InvalidDataError) {
                cache.noteFailure(picture);
            }
            return {.state = FileThumbnail::State::unreadable, .fullSize = full};
        }
        const bool isTurned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
        const QSize seen = full.isValid() ? (isTurned ? full.transposed() : full) : image.size();
        cache.keep(picture, size, image, seen);
        return {.state = FileThumbnail::State::picture, .image = filling(image, size), .fullSize = seen};
    }
};

ThumbnailStore::ThumbnailStore(ThumbnailCache cache, Limits limits)
    : m_reader(std::make_shared<Reader>(std::move(cache), limits)),
      m_threads(std::make_unique<QThreadPool>()) {
    m_threads->setMaxThreadCount(mostAtOnce);
    m_threads->setExpiryTimeout(idleMilliseconds);
}

ThumbnailStore::~ThumbnailStore() {
    m_threads->clear();
    if (!m_threads->waitForDone(mostWaitMilliseconds)) {
        // The thread that waits for the server ends with the program.
        [[maybe_unused]] const QThreadPool* const abandoned = m_threads.release();
    }
}

std::shared_ptr<void> ThumbnailStore::request(const std::string& file, QSize size, Done done) {
    const auto wanted = std::make_shared<Done>(std::move(done));
    m_threads->start([reader = m_reader, file, size, weak = std::weak_ptr(wanted)] {
        if (weak.expired()) {
            return;
        }
        FileThumbnail found = reader->read(file, size);
        QCoreApplication* const application = QCoreApplication::instance();
        // Null for what nobody has waited for.
        if (application == nullptr) {
            return;
        }
        QMetaObject::invokeMethod(
            application,
            [weak, found = std::move(found)] {
                // Kept until it returns, as it may release the request.
                if (const auto still = weak.lock()) {
                    (*still)(found);
                }
            },
            Qt::QueuedConnection);
    });
    return wanted;
}

} // namespace vantrel

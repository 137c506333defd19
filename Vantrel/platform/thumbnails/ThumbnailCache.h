// The thumbnails that all programs of a user share, as the freedesktop.org thumbnail specification has them:
// PNG files in folders by size, named after the digest of the picture's URI, which say of which version of
// the picture they are.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace vantrel {

// May be used from any thread.
class ThumbnailCache {
public:
    // A version of a picture.
    struct Picture {
        std::string path;
        // In seconds since 1970.
        std::int64_t modified = 0;
        std::uint64_t bytes = 0;
    };

    struct Entry {
        QImage image;
        // Of the picture; empty when the entry does not say it.
        QSize fullSize;
    };

    // `folder` is usually "~/.cache/thumbnails"; an empty one finds and keeps nothing.
    explicit ThumbnailCache(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    // One that is at least as large as `size` fitted into the picture, where there is a folder for that.
    [[nodiscard]] std::optional<Entry> find(const Picture& picture, QSize size) const;
    // The largest length of the thumbnails from which one of `size` is made.
    [[nodiscard]] static int edgeFor(QSize size);
    // Scales `image` to what is kept for edgeFor(`size`), unless it is smaller than that. A failure to write
    // is nobody's loss.
    void keep(const Picture& picture, QSize size, const QImage& image, QSize fullSize) const;

    // Whether this program has found this version of the picture to be unreadable.
    [[nodiscard]] bool hasFailed(const Picture& picture) const;
    void noteFailure(const Picture& picture) const;

    // "file:///home/ada/a%20b.png", as all programs write it.
    [[nodiscard]] static QString uriOf(const std::string& path);

private:
    [[nodiscard]] std::filesystem::path fileFor(const Picture& picture, const char* folder) const;
    // The keys that bind a file of the cache to its picture.
    static void mark(QImage& image, const Picture& picture);
    static void write(const std::filesystem::path& file, const QImage& image);

    std::filesystem::path m_folder;
};

} // namespace vantrel

#include "Vantrel/platform/posix/WallpaperFolders.h"

#include "Vantrel/platform/posix/FileDescriptor.h"
#include "VantrelCore/scenes/SystemWallpaperCatalog.h"

#include <algorithm>
#include <fcntl.h>
#include <set>
#include <system_error>
#include <utility>

namespace vantrel::posix {

namespace {

using std::filesystem::path;

// More than any system comes with; a folder of photographs is not read for ever.
constexpr std::size_t mostPictures = 2'000;
constexpr std::size_t mostEntries = 20'000;
constexpr int deepest = 3;
constexpr std::uint64_t longestList = std::uint64_t{1} << 20U;

std::string contentOf(const path& file) {
    const auto descriptor = FileDescriptor::open(file.string(), O_RDONLY | O_NONBLOCK | O_NOCTTY);
    return descriptor.isOpen() ? descriptor.readToEnd(longestList).value_or("") : "";
}

class Reader {
public:
    explicit Reader(const std::vector<std::string>& languages) : m_languages(languages) {}

    void readLists(const path& folder) {
        for (const path& file : entries(folder)) {
            if (file.extension() == ".xml") {
                for (auto& picture : WallpaperLists::pictures(contentOf(file), m_languages)) {
                    add(std::move(picture));
                }
            }
        }
    }

    void readPackages(const path& folder) {
        for (const path& package : entries(folder)) {
            std::string metadata = contentOf(package / "metadata.json");
            metadata = metadata.empty() ? contentOf(package / "metadata.desktop") : metadata;
            const auto name = WallpaperLists::packageName(metadata, m_languages);
            std::vector<std::string> images;
            for (const path& image : entries(package / "contents" / "images")) {
                images.push_back(image.filename().string());
            }
            if (const auto largest = WallpaperLists::largestImage(images)) {
                add({name.value_or(package.filename().string()),
                     (package / "contents" / "images" / *largest).string()});
            }
        }
    }

    void readPictures(const path& folder, int depth) {
        for (const path& entry : entries(folder)) {
            const std::string name = entry.filename().string();
            std::error_code error;
            if (SystemWallpaperCatalog::isWallpaperImage(name)) {
                add({SystemWallpaperCatalog::displayName(entry.string()), entry.string()});
            } else if (depth > 1 && !name.starts_with('.') && is_directory(entry, error)) {
                readPictures(entry, depth - 1);
            }
        }
    }

    [[nodiscard]] std::vector<SystemWallpaper> found() {
        return SystemWallpaperCatalog::ordered(std::move(m_found));
    }

private:
    [[nodiscard]] std::vector<path> entries(const path& folder) {
        std::vector<path> found;
        std::error_code error;
        for (auto entry = std::filesystem::directory_iterator(folder, error);
             !error && entry != std::filesystem::directory_iterator() && m_entries < mostEntries;
             entry.increment(error)) {
            found.push_back(entry->path());
            ++m_entries;
        }
        return found;
    }

    void add(SystemWallpaper picture) {
        std::error_code error;
        const path file = std::filesystem::canonical(picture.path, error);
        if (!error && m_found.size() < mostPictures && is_regular_file(file, error) &&
            m_files.insert(file).second) {
            m_found.push_back(std::move(picture));
        }
    }

    const std::vector<std::string>& m_languages;
    std::vector<SystemWallpaper> m_found;
    std::set<path> m_files;
    std::size_t m_entries = 0;
};

} // namespace

WallpaperFolders WallpaperFolders::in(const Folders& dataFolders) {
    WallpaperFolders folders;
    for (const path& data : dataFolders) {
        for (const char* const desktop : {"gnome", "mate", "cinnamon"}) {
            folders.lists.push_back(data / (std::string(desktop) + "-background-properties"));
        }
        folders.packages.push_back(data / "wallpapers");
        // Xfce and MATE keep theirs in folders of "backgrounds".
        for (const char* const pictures :
             {"backgrounds", "wallpapers", "xfce4/backdrops", "lxqt/wallpapers"}) {
            folders.pictures.push_back(data / pictures);
        }
    }
    return folders;
}

std::vector<SystemWallpaper> WallpaperFolders::read(const std::vector<std::string>& languages) const {
    // The lists first, since they know better names than the files have.
    Reader reader(languages);
    for (const path& folder : lists) {
        reader.readLists(folder);
    }
    for (const path& folder : packages) {
        reader.readPackages(folder);
    }
    for (const path& folder : pictures) {
        // A package's other sizes are deeper, and are the same picture.
        const bool isOfPackages = std::ranges::find(packages, folder) != packages.end();
        reader.readPictures(folder, isOfPackages ? 1 : deepest);
    }
    return reader.found();
}

} // namespace vantrel::posix

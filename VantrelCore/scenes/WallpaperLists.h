// The lists in which desktops name the pictures that come with the system.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// A picture that the system offers as a wallpaper.
struct SystemWallpaper {
    // For people.
    std::string name;
    // The image file.
    std::string path;

    bool operator==(const SystemWallpaper&) const = default;
};

// `languages` are those of the user, the preferred one first, as in "de_DE" and "de". Names are in the first
// one that has a translation.
namespace WallpaperLists {

// A list as GNOME, MATE and Cinnamon keep it: a picture, and often a second one for the dark style. Leaves
// out what is marked as deleted and what is no image file, as slide shows are. A damaged list is read up to
// the damage.
[[nodiscard]] std::vector<SystemWallpaper> pictures(std::string_view xml,
                                                    const std::vector<std::string>& languages);

// The name in a KDE package's metadata.json or metadata.desktop.
[[nodiscard]] std::optional<std::string> packageName(std::string_view metadata,
                                                     const std::vector<std::string>& languages);

// Of a KDE package's images, which are named after their sizes ("1920x1080.jpg"), the one with most pixels.
[[nodiscard]] std::optional<std::string> largestImage(const std::vector<std::string>& fileNames);

// "de_DE" and "de" for "de_DE.UTF-8"; none for "C".
[[nodiscard]] std::vector<std::string> languagesOf(std::string_view locale);

} // namespace WallpaperLists
} // namespace vantrel

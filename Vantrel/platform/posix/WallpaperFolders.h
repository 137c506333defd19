// The pictures that a system comes with, as its desktops list them and as they are in their folders.
#pragma once

#include "VantrelCore/scenes/WallpaperLists.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vantrel::posix {

struct WallpaperFolders {
    using Folders = std::vector<std::filesystem::path>;

    // Of lists as GNOME, MATE and Cinnamon keep them.
    Folders lists{};
    // Of packages as KDE keeps them.
    Folders packages{};
    // Of image files, also in folders below.
    Folders pictures{};

    // Those that the desktops use in these data folders ("/usr/share"), the user's own first.
    [[nodiscard]] static WallpaperFolders in(const Folders& dataFolders);

    // Every picture that exists, once even if links lead to it, ordered by name. Reads many files, so not on
    // the main thread. `languages` as in WallpaperLists.
    [[nodiscard]] std::vector<SystemWallpaper> read(const std::vector<std::string>& languages) const;
};

} // namespace vantrel::posix

#include "VantrelCore/scenes/WallpaperRecents.h"

namespace vantrel::WallpaperRecents {

std::vector<std::string> with(std::vector<std::string> recents, const std::string& path) {
    if (!path.empty()) {
        std::erase(recents, path);
        recents.insert(recents.begin(), path);
    }
    if (recents.size() > limit) {
        recents.resize(limit);
    }
    return recents;
}

} // namespace vantrel::WallpaperRecents

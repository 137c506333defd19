#include "VantrelCore/scenes/SystemWallpaperCatalog.h"

#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <tuple>

namespace vantrel::SystemWallpaperCatalog {

bool isWallpaperImage(std::string_view fileName) {
    constexpr std::array<std::string_view, 12> extensions{
        ".avif", ".bmp", ".heic", ".heif", ".jpg", ".jpeg", ".jxl", ".png", ".svg", ".tif", ".tiff", ".webp"};
    if (fileName.starts_with('.')) {
        return false;
    }
    const std::string extension = Unicode::lowercased(std::filesystem::path(fileName).extension().string());
    return std::ranges::find(extensions, extension) != extensions.end();
}

std::vector<std::string> imagePaths(const std::vector<std::string>& fileNames, std::string_view inDirectory) {
    std::vector<std::string> paths;
    for (const auto& fileName : fileNames) {
        if (isWallpaperImage(fileName)) {
            paths.push_back((std::filesystem::path(inDirectory) / fileName).string());
        }
    }
    std::ranges::sort(paths, {}, [](const std::string& path) {
        return std::tuple(Unicode::lowercased(displayName(path)), path);
    });
    return paths;
}

std::string displayName(std::string_view path) {
    return std::filesystem::path(path).stem().string();
}

std::vector<SystemWallpaper> ordered(std::vector<SystemWallpaper> found) {
    std::set<std::string> seen;
    std::erase_if(found, [&](const SystemWallpaper& each) { return !seen.insert(each.path).second; });
    std::ranges::sort(found, {}, [](const SystemWallpaper& each) {
        return std::tuple(Unicode::lowercased(each.name), each.path);
    });
    return found;
}

} // namespace vantrel::SystemWallpaperCatalog

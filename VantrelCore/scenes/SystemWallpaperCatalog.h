// The system's stock pictures for the wallpaper picker.
#pragma once

#include "VantrelCore/scenes/WallpaperLists.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::SystemWallpaperCatalog {

inline constexpr std::string_view directory = "/System/Library/Desktop Pictures";

// True for the picture formats that desktops come with, by extension ignoring case (avif, bmp, heic, heif,
// jpg, jpeg, jxl, png, svg, tif, tiff, webp). False for hidden files.
[[nodiscard]] bool isWallpaperImage(std::string_view fileName);

// The pictures among the file names of a directory, as full paths, ordered by display name ignoring case,
// then by byte order.
[[nodiscard]] std::vector<std::string> imagePaths(const std::vector<std::string>& fileNames,
                                                  std::string_view inDirectory = directory);

// The file's name without its extension.
[[nodiscard]] std::string displayName(std::string_view path);

// Each file once, with the first name it has, ordered like imagePaths().
[[nodiscard]] std::vector<SystemWallpaper> ordered(std::vector<SystemWallpaper> found);

} // namespace vantrel::SystemWallpaperCatalog

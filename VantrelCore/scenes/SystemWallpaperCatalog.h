// The system's stock pictures for the wallpaper picker.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::SystemWallpaperCatalog {

inline constexpr std::string_view directory = "/System/Library/Desktop Pictures";

// True for the common picture formats, by extension ignoring case (heic, heif, jpg, jpeg, png, tif, tiff,
// webp). False for hidden files.
[[nodiscard]] bool isWallpaperImage(std::string_view fileName);

// The pictures among the file names of a directory, as full paths, ordered by display name ignoring case,
// then by byte order.
[[nodiscard]] std::vector<std::string> imagePaths(const std::vector<std::string>& fileNames,
                                                  std::string_view inDirectory = directory);

// The file's name without its extension.
[[nodiscard]] std::string displayName(std::string_view path);

} // namespace vantrel::SystemWallpaperCatalog

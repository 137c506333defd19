// The wallpapers that were chosen or shown last.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vantrel::WallpaperRecents {

inline constexpr std::size_t limit = 8;

// The image files, newest first: `path` in front, the others after it, each once and no more than `limit`.
// An empty path adds nothing.
[[nodiscard]] std::vector<std::string> with(std::vector<std::string> recents, const std::string& path);

} // namespace vantrel::WallpaperRecents

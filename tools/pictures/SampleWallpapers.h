// Invented wallpapers, so that pictures look the same on every machine.
#pragma once

#include "Vantrel/interface/wallpaper/WallpaperServices.h"

#include <cstddef>

namespace vantrel::pictures {

// Paints landscapes by the file's name: "/pictures/Lake.jpg". "Harbour" is gone, "Broken" cannot be read, and
// "Meadow" and "Shore" are never finished.
class SampleThumbnails final : public Thumbnails {
public:
    [[nodiscard]] std::shared_ptr<void> request(const std::string& file, QSize size, Done done) override;
};

enum class SampleWallpapers : std::uint8_t { usual, none, many };

[[nodiscard]] WallpaperServices sampleWallpapers(SampleWallpapers which);

} // namespace vantrel::pictures

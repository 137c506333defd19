// What the wallpaper picker needs from the program.
#pragma once

#include "Vantrel/interface/ports/Thumbnails.h"
#include "VantrelCore/scenes/WallpaperLists.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace vantrel {

struct WallpaperServices {
    using List = std::vector<SystemWallpaper>;

    // Outlives whoever shows pictures; null for no pictures.
    Thumbnails* thumbnails = nullptr;
    // Calls `done` once, later, on the main thread, with what the system offers.
    std::function<void(std::function<void(List)> done)> readSystem = [](const auto& done) { done({}); };
    // Newest first.
    std::function<std::vector<std::string>()> recents = [] { return std::vector<std::string>(); };
    // Opens the desktop's own chooser for picture files and returns; `done` is called if one is chosen.
    std::function<void(QWidget& parent, std::function<void(const std::string& file)> done)> chooseFile =
        openFileDialog;

    static void openFileDialog(QWidget& parent, std::function<void(const std::string& file)> done);
};

} // namespace vantrel

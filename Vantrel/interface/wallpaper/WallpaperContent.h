// What the wallpaper picker shows, as a value.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/model/SceneWallpaper.h"
#include "VantrelCore/scenes/WallpaperLists.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct WallpaperContent {
    struct Display {
        DisplayInfo info;
        // Empty if its picture stays as it is.
        std::string path;
        // For people; empty without a path.
        std::string name;

        bool operator==(const Display&) const = default;
    };

    // A picture and where it shows.
    struct Fact {
        // Empty when it is the same on every display.
        std::string display;
        std::string name;
        std::string path;

        bool operator==(const Fact&) const = default;
    };

    struct Tile {
        std::string path;
        std::string name;
        // The picture of the chosen displays.
        bool isChosen = false;

        bool operator==(const Tile&) const = default;
    };

    struct Context {
        std::vector<DisplayInfo> displays;
        SceneWallpaper wallpaper{};
        // DisplayInfo::uuid of the display whose picture is chosen; empty for all of them.
        std::string display{};
        // As they were when the picker opened, so that nothing moves away from under the pointer; what was
        // added since first.
        std::vector<std::string> recents{};
        // None while they are read.
        std::optional<std::vector<SystemWallpaper>> system{};
    };

    std::vector<Display> displays;
    // The recents, and what a display has that is nowhere else.
    std::vector<Tile> recent;
    // Those of the system that are not among the recent ones.
    std::vector<Tile> system;

    bool operator==(const WallpaperContent&) const = default;

    [[nodiscard]] static WallpaperContent of(const Context& context);

    // Display by display; without those whose picture stays as it is.
    [[nodiscard]] static std::vector<Fact> facts(const std::vector<DisplayInfo>& displays,
                                                 const std::optional<SceneWallpaper>& wallpaper);

    // Every display shows the same, or every display nothing.
    [[nodiscard]] static bool isSameOnAll(const std::vector<DisplayInfo>& displays,
                                          const SceneWallpaper& wallpaper);
};

} // namespace vantrel

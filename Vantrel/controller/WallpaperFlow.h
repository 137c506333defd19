// Shows a scene's wallpapers, and restores the user's own when a scene has none.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "VantrelCore/model/Scene.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class WallpaperFlow {
public:
    explicit WallpaperFlow(ControllerContext& context) : m_context(context) {}

    // Shows the wallpapers of a scene applied on the current desk. Works in the background, one scene at a
    // time; of those that arrive meanwhile, only the newest is kept.
    void apply(const Scene& scene);

private:
    struct Result {
        WallpaperMemory memory;
        std::vector<std::string> problems;
        // The scene's pictures that are shown now.
        std::vector<std::string> shown{};
    };

    [[nodiscard]] static Result show(const std::optional<SceneWallpaper>& wallpaper,
                                     const std::vector<DisplayInfo>& displays, WallpaperMemory memory,
                                     DesktopPictures& pictures);
    void note(const Result& result);
    void finish(const std::optional<Result>& result);

    ControllerContext& m_context;
    bool m_isBusy = false;
    std::optional<Scene> m_next;
    // The memory that could not be written to the settings.
    std::optional<WallpaperMemory> m_unwritten;
};

} // namespace vantrel

// Shows a scene's wallpapers, and puts the user's own back when a scene has none.
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

    // The scene was applied on the current desk. Works in the background, one scene at a time; of those that
    // come meanwhile the newest.
    void apply(const Scene& scene);

private:
    struct Result {
        WallpaperMemory memory;
        std::vector<std::string> problems;
    };

    [[nodiscard]] static Result show(const std::optional<SceneWallpaper>& wallpaper,
                                     const std::vector<DisplayInfo>& displays, WallpaperMemory memory,
                                     DesktopPictures& pictures);
    void note(const Result& result);
    void finish(const std::optional<Result>& result);

    ControllerContext& m_context;
    bool m_isBusy = false;
    std::optional<Scene> m_next;
    // What the settings do not tell because it could not be written.
    std::optional<WallpaperMemory> m_unwritten;
};

} // namespace vantrel

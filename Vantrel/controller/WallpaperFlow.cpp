#include "Vantrel/controller/WallpaperFlow.h"

#include "VantrelCore/scenes/WallpaperBaseline.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel {

namespace {

std::optional<std::string> pathFor(const DisplayInfo& display,
                                   const std::optional<SceneWallpaper>& wallpaper) {
    if (!wallpaper) {
        return std::nullopt;
    }
    const auto found = wallpaper->perDisplay.find(display.uuid);
    return found == wallpaper->perDisplay.end() || found->second.empty() ? std::nullopt
                                                                         : std::optional(found->second);
}

} // namespace

void WallpaperFlow::apply(const Scene& scene) {
    if (m_isBusy) {
        m_next = scene;
        return;
    }
    const WallpaperMemory memory = m_context.settings.wallpaperMemory();
    if (!scene.hasWallpaper() && memory.baseline.empty()) {
        return;
    }
    m_isBusy = true;
    m_context.inBackground(
        WorkPriority::userInitiated,
        [wallpaper = scene.wallpaper, displays = m_context.state().displays, memory,
         &pictures = m_context.ports.pictures] { return show(wallpaper, displays, memory, pictures); },
        [this, memory](const Result& result) { finish(memory, result); });
}

WallpaperFlow::Result WallpaperFlow::show(const std::optional<SceneWallpaper>& wallpaper,
                                          const std::vector<DisplayInfo>& displays, WallpaperMemory memory,
                                          DesktopPictures& pictures) {
    Result result{.memory = std::move(memory), .problems = {}};
    // All are read before any is set: on some desktops setting one sets the others.
    std::vector<std::optional<std::string>> shown;
    shown.reserve(displays.size());
    for (const DisplayInfo& display : displays) {
        shown.push_back(pictures.picture(display));
    }
    std::vector<const DisplayInfo*> changed;
    for (std::size_t i = 0; i < displays.size(); ++i) {
        const DisplayInfo& display = displays[i];
        const auto decision =
            WallpaperBaseline::decide(pathFor(display, wallpaper), shown[i], display.uuid, result.memory);
        const auto* const set = std::get_if<WallpaperAction::Set>(&decision.action);
        const auto* const restore = std::get_if<WallpaperAction::Restore>(&decision.action);
        if (set == nullptr && restore == nullptr) {
            continue;
        }
        const std::string& picture = set != nullptr ? set->path : restore->url;
        if (!pictures.setPicture(display, picture)) {
            result.problems.push_back(fmt::format("{} cannot be shown on {}", picture, display.name));
            continue;
        }
        result.memory = decision.memory;
        if (set != nullptr) {
            changed.push_back(&display);
        }
    }
    for (const DisplayInfo* display : changed) {
        // As the desktop tells it, so that it is known again.
        result.memory.lastSet[display->uuid] =
            pictures.picture(*display).value_or(*pathFor(*display, wallpaper));
    }
    return result;
}

void WallpaperFlow::finish(const WallpaperMemory& before, const Result& result) {
    m_isBusy = false;
    for (const std::string& problem : result.problems) {
        m_context.log("scene wallpaper: " + problem);
    }
    if (result.memory != before && !m_context.settings.setWallpaperMemory(result.memory)) {
        m_context.log("scene wallpaper: what was shown before could not be written");
    }
    if (const auto next = std::exchange(m_next, std::nullopt)) {
        apply(*next);
    }
}

} // namespace vantrel

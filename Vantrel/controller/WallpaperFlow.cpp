#include "Vantrel/controller/WallpaperFlow.h"

#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/scenes/WallpaperBaseline.h"

#include <algorithm>
#include <fmt/format.h>
#include <functional>
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

// On a desktop with one picture for all displays, a picture that a scene set on one of them shows on the
// others too, and is not the user's own there either.
std::optional<std::string> usersOwn(const DisplayInfo& display, const std::optional<std::string>& shown,
                                    const WallpaperMemory& memory) {
    const auto own = memory.lastSet.find(display.uuid);
    const auto set = std::ranges::find_if(memory.lastSet, [&](const auto& entry) {
        return entry.second == shown && memory.baseline.contains(entry.first);
    });
    const bool isOthers =
        set != memory.lastSet.end() && (own == memory.lastSet.end() || own->second != shown);
    return isOthers ? memory.baseline.at(set->first) : shown;
}

} // namespace

void WallpaperFlow::apply(const Scene& scene) {
    if (m_isBusy) {
        m_next = scene;
        return;
    }
    const WallpaperMemory memory = m_unwritten.value_or(m_context.settings.wallpaperMemory());
    if (!scene.hasWallpaper() && memory.baseline.empty()) {
        return;
    }
    m_isBusy = true;
    m_context.inBackground(
        WorkPriority::userInitiated,
        [wallpaper = scene.wallpaper, displays = m_context.state().displays, memory,
         &pictures = m_context.ports.pictures] { return show(wallpaper, displays, memory, pictures); },
        [this](const std::optional<Result>& result) { finish(result); });
}

WallpaperFlow::Result WallpaperFlow::show(const std::optional<SceneWallpaper>& wallpaper,
                                          const std::vector<DisplayInfo>& displays, WallpaperMemory memory,
                                          DesktopPictures& pictures) {
    Result result{.memory = std::move(memory), .problems = {}};
    // Read all before setting any: on some desktops setting one sets the others.
    std::vector<std::optional<std::string>> shown;
    shown.reserve(displays.size());
    for (const DisplayInfo& display : displays) {
        shown.push_back(pictures.picture(display));
    }
    const bool isOneForAll =
        displays.size() > 1 && std::ranges::adjacent_find(shown, std::ranges::not_equal_to()) == shown.end();
    const WallpaperMemory before = result.memory;
    const auto labels = DisplayLabels::of(displays);
    std::vector<const DisplayInfo*> changed;
    // First the displays that get the user's picture back: on one-picture desktops that, too, changes all
    // displays.
    for (const bool isSetting : {false, true}) {
        for (std::size_t i = 0; i < displays.size(); ++i) {
            const DisplayInfo& display = displays[i];
            const auto path = pathFor(display, wallpaper);
            if (path.has_value() != isSetting) {
                continue;
            }
            const auto current = isSetting && isOneForAll ? usersOwn(display, shown[i], before) : shown[i];
            const auto decision = WallpaperBaseline::decide(path, current, display.uuid, result.memory);
            const auto* const restore = std::get_if<WallpaperAction::Restore>(&decision.action);
            if (!isSetting && restore == nullptr) {
                continue;
            }
            const std::string& picture = isSetting ? *path : restore->url;
            if (!pictures.setPicture(display, picture)) {
                result.problems.push_back(
                    fmt::format("{} cannot be shown on {}", picture, labels.at(display.uuid)));
                continue;
            }
            result.memory = decision.memory;
            if (isSetting) {
                changed.push_back(&display);
            }
        }
    }
    for (const DisplayInfo* display : changed) {
        // As the desktop reports it, so that it is recognized later.
        const std::string path = *pathFor(*display, wallpaper);
        result.memory.lastSet[display->uuid] = pictures.picture(*display).value_or(path);
        result.shown.push_back(path);
    }
    return result;
}

void WallpaperFlow::note(const Result& result) {
    for (const std::string& problem : result.problems) {
        m_context.log("scene wallpaper: " + problem);
    }
    for (const std::string& picture : result.shown) {
        m_context.settings.noteWallpaper(picture);
    }
    m_unwritten.reset();
    if (result.memory != m_context.settings.wallpaperMemory() &&
        !m_context.settings.setWallpaperMemory(result.memory)) {
        m_context.log("scene wallpaper: the previous wallpapers could not be saved");
        m_unwritten = result.memory;
    }
}

void WallpaperFlow::finish(const std::optional<Result>& result) {
    m_isBusy = false;
    if (result) {
        note(*result);
    }
    if (const auto next = std::exchange(m_next, std::nullopt)) {
        apply(*next);
    }
}

} // namespace vantrel

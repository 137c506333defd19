#include "Vantrel/interface/wallpaper/WallpaperContent.h"

#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/scenes/SystemWallpaperCatalog.h"

#include <algorithm>
#include <map>
#include <set>

namespace vantrel {

namespace {

std::string pathFor(const DisplayInfo& display, const SceneWallpaper& wallpaper) {
    const auto found = wallpaper.perDisplay.find(display.uuid);
    return found == wallpaper.perDisplay.end() ? "" : found->second;
}

} // namespace

bool WallpaperContent::isSameOnAll(const std::vector<DisplayInfo>& displays,
                                   const SceneWallpaper& wallpaper) {
    return std::ranges::all_of(displays, [&](const DisplayInfo& display) {
        return pathFor(display, wallpaper) == pathFor(displays.front(), wallpaper);
    });
}

std::vector<WallpaperContent::Fact> WallpaperContent::facts(const std::vector<DisplayInfo>& displays,
                                                            const std::optional<SceneWallpaper>& wallpaper) {
    std::vector<Fact> facts;
    for (const DisplayInfo& display : DisplayLabels::labelled(displays)) {
        const std::string path = wallpaper ? pathFor(display, *wallpaper) : "";
        if (!path.empty()) {
            facts.push_back({display.name, SystemWallpaperCatalog::displayName(path), path});
        }
    }
    if (facts.size() > 1 && facts.size() == displays.size() && isSameOnAll(displays, *wallpaper)) {
        facts.resize(1);
        facts[0].display.clear();
    }
    return facts;
}

WallpaperContent WallpaperContent::of(const Context& context) {
    std::map<std::string, std::string> names;
    for (const SystemWallpaper& each : context.system.value_or(std::vector<SystemWallpaper>())) {
        names.emplace(each.path, each.name);
    }
    const auto nameOf = [&](const std::string& path) {
        const auto known = names.find(path);
        return known == names.end() ? SystemWallpaperCatalog::displayName(path) : known->second;
    };
    WallpaperContent content;
    std::set<std::string> chosen;
    for (const DisplayInfo& display : DisplayLabels::labelled(context.displays)) {
        const std::string path = pathFor(display, context.wallpaper);
        content.displays.push_back({display, path, path.empty() ? "" : nameOf(path)});
        if (context.display.empty() || context.display == display.uuid) {
            chosen.insert(path);
        }
    }
    std::set<std::string> shown;
    const auto add = [&](std::vector<Tile>& tiles, const std::string& path, const std::string& name) {
        if (!path.empty() && shown.insert(path).second) {
            tiles.push_back({path, name, chosen == std::set{path}});
        }
    };
    for (const std::string& path : context.recents) {
        add(content.recent, path, nameOf(path));
    }
    for (const Display& display : content.displays) {
        if (context.system && !names.contains(display.path)) {
            add(content.recent, display.path, display.name);
        }
    }
    for (const SystemWallpaper& each : context.system.value_or(std::vector<SystemWallpaper>())) {
        add(content.system, each.path, each.name);
    }
    return content;
}

} // namespace vantrel

#include "VantrelCore/scenes/SceneRail.h"

#include "VantrelCore/scenes/SceneDeskComparison.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <set>
#include <tuple>

namespace vantrel::SceneRail {

namespace {

// `scenes` is not empty.
std::string groupName(const std::string& configID, const std::vector<Scene>& scenes,
                      const DeskName& deskName) {
    const auto known = deskName(configID);
    if (known && !known->empty()) {
        return *known;
    }
    const std::string& noted = std::ranges::max_element(scenes, {}, &Scene::createdAt)->layout.name;
    return noted.empty() ? tr("Unknown desk") : noted;
}

} // namespace

std::vector<Scene> scenes(const std::string& configID, const std::vector<Scene>& all) {
    std::vector<Scene> ofDesk;
    std::ranges::copy_if(all, std::back_inserter(ofDesk),
                         [&](const Scene& scene) { return scene.configID == configID; });
    return ofDesk;
}

std::vector<SceneDeskGroup> otherDeskGroups(const std::string& currentConfigID, const std::vector<Scene>& all,
                                            const DeskName& deskName) {
    std::set<std::string> otherDesks;
    for (const auto& scene : all) {
        if (SceneDeskComparison::isCrossDesk(scene.configID, currentConfigID)) {
            otherDesks.insert(scene.configID);
        }
    }
    std::vector<SceneDeskGroup> groups;
    for (const auto& configID : otherDesks) {
        auto ofDesk = scenes(configID, all);
        auto name = groupName(configID, ofDesk, deskName);
        groups.push_back({configID, std::move(name), std::move(ofDesk)});
    }
    std::ranges::stable_sort(groups, {}, [](const SceneDeskGroup& group) {
        return std::tuple(Unicode::lowercased(group.deskName), group.deskName, group.configID);
    });
    return groups;
}

std::size_t otherDeskCount(const std::string& currentConfigID, const std::vector<Scene>& all) {
    return static_cast<std::size_t>(std::ranges::count_if(all, [&](const Scene& scene) {
        return SceneDeskComparison::isCrossDesk(scene.configID, currentConfigID);
    }));
}

std::string otherDesksLabel(std::size_t count) {
    return trn("{} scene on another desk", "{} scenes on other desks", static_cast<std::int64_t>(count));
}

} // namespace vantrel::SceneRail

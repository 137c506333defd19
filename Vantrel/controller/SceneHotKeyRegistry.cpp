#include "Vantrel/controller/SceneHotKeyRegistry.h"

#include <algorithm>
#include <utility>

namespace vantrel {

SceneHotKeyRegistry& SceneHotKeyRegistry::shared() {
    static SceneHotKeyRegistry registry;
    return registry;
}

void SceneHotKeyRegistry::clear() {
    m_registered.clear();
    m_refused.clear();
}

void SceneHotKeyRegistry::dropChanged(const std::vector<Scene>& scenes) {
    std::erase_if(m_registered, [&](const auto& entry) {
        return std::ranges::none_of(scenes, [&](const Scene& scene) {
            return scene.id == entry.first && scene.hotkey() == entry.second.combo;
        });
    });
}

void SceneHotKeyRegistry::sync(HotKeys& hotKeys, const std::vector<Scene>& scenes,
                               const std::function<void(const std::string&)>& action) {
    dropChanged(scenes);
    m_refused.clear();
    for (const auto& scene : scenes) {
        const auto combo = scene.hotkey();
        if (!combo || m_registered.contains(scene.id)) {
            continue;
        }
        auto hotKey = hotKeys.add(m_nextID, *combo, [action, id = scene.id] { action(id); });
        if (hotKey) {
            ++m_nextID;
            m_registered.emplace(scene.id, Registered{*combo, std::move(hotKey)});
        } else {
            m_refused.push_back(scene.id);
        }
    }
}

} // namespace vantrel

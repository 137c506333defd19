// The registered shortcuts of the scenes.
#pragma once

#include "VantrelCore/model/Scene.h"
#include "VantrelCore/ports/HotKeys.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

class SceneHotKeyRegistry {
public:
    explicit SceneHotKeyRegistry(HotKeys& hotKeys) : m_hotKeys(hotKeys) {}

    // Brings the registered shortcuts in line with the scenes: those of scenes that are gone, have none any
    // more or another one are dropped, those that are missing are registered with the next id. `action` gets
    // the scene's id when its shortcut is pressed. What the system refused is tried again every time.
    void sync(const std::vector<Scene>& scenes, const std::function<void(const std::string&)>& action);

    // The first half of that.
    void dropChanged(const std::vector<Scene>& scenes);

    // The scenes whose shortcut the system refused at the last sync.
    [[nodiscard]] const std::vector<std::string>& refused() const { return m_refused; }

    void clear() { m_registered.clear(); }

private:
    struct Registered {
        HotKeyCombo combo;
        std::unique_ptr<HotKey> hotKey;
    };

    HotKeys& m_hotKeys;
    std::map<std::string, Registered> m_registered;
    std::vector<std::string> m_refused;
    // Never used twice.
    std::uint32_t m_nextID = 1000;
};

} // namespace vantrel

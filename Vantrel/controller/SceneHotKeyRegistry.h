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

// Used on the main thread.
class SceneHotKeyRegistry {
public:
    // The only one: no id is given out twice while the process runs.
    [[nodiscard]] static SceneHotKeyRegistry& shared();

    // Brings the registered shortcuts in line with the scenes: those of scenes that are gone, have none any
    // more or another one are dropped, those that are missing are registered with the next id. `action` gets
    // the scene's id when its shortcut is pressed. What the system refused is tried again every time.
    void sync(HotKeys& hotKeys, const std::vector<Scene>& scenes,
              const std::function<void(const std::string&)>& action);

    // The first half of that.
    void dropChanged(const std::vector<Scene>& scenes);

    // The scenes whose shortcut the system refused at the last sync.
    [[nodiscard]] const std::vector<std::string>& refused() const { return m_refused; }

    // Drops every shortcut; to be called before the HotKeys that gave them goes away.
    void clear();

private:
    SceneHotKeyRegistry() = default;

    struct Registered {
        HotKeyCombo combo;
        std::unique_ptr<HotKey> hotKey;
    };

    // By the scene's id.
    std::map<std::string, Registered> m_registered;
    std::vector<std::string> m_refused;
    std::uint32_t m_nextID = 1000;
};

} // namespace vantrel

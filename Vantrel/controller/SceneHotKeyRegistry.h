// The registered shortcuts of scenes.
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
    // The only instance: no ID is reused while the process runs.
    [[nodiscard]] static SceneHotKeyRegistry& shared();

    // Updates the registered shortcuts to match the scenes. Drops shortcuts of deleted scenes and changed or
    // removed shortcuts, and registers missing ones with the next ID. `action` receives the scene's ID when
    // its shortcut is pressed. Shortcuts that the system refused are tried again every time.
    void sync(HotKeys& hotKeys, const std::vector<Scene>& scenes,
              const std::function<void(const std::string&)>& action);

    // Only drops the shortcuts that sync() would drop.
    void dropChanged(const std::vector<Scene>& scenes);

    // The scenes whose shortcut the system refused at the last sync.
    [[nodiscard]] const std::vector<std::string>& refused() const { return m_refused; }

    // Drops every shortcut. Call before destroying the HotKeys that registered them.
    void clear();

private:
    SceneHotKeyRegistry() = default;

    struct Registered {
        HotKeyCombo combo;
        std::unique_ptr<HotKey> hotKey;
    };

    // By scene ID.
    std::map<std::string, Registered> m_registered;
    std::vector<std::string> m_refused;
    std::uint32_t m_nextID = 1000;
};

} // namespace vantrel

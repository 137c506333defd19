// The keyboard shortcuts: read from the settings and the scenes, registered with the system, and changed by
// the user.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/SceneFlow.h"
#include "Vantrel/controller/SceneHotKeyRegistry.h"
#include "VantrelCore/commands/HotKeyCollisions.h"

#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class HotKeyFlow {
public:
    struct Actions {
        std::function<void()> restore;
        std::function<void()> save;
        std::function<void()> stash;
        std::function<void()> undo;
        std::function<void(const std::string& sceneID)> applyScene;
    };

    // Registers everything as settings and scenes say, and does so again whenever the keyboard changes. The
    // scenes are published already.
    HotKeyFlow(ControllerContext& context, SceneFlow& scenes, Actions actions);
    ~HotKeyFlow();
    HotKeyFlow(const HotKeyFlow&) = delete;
    HotKeyFlow& operator=(const HotKeyFlow&) = delete;

    // Registers anew what the settings say now and is not registered so.
    void settingsChanged() { syncEverything(); }

    // Each registers the stored combination of its command in place of another one. What is registered as
    // stored stays, and what the system refused is tried again.
    void syncRestoreHotKey();
    void syncSaveHotKey();
    void syncStashHotKey();
    void syncUndoHotkey();
    // Registers nothing: the quick switcher does not exist yet.
    void syncQuickSwitcherHotkey();
    void syncSceneHotKeys();

    // Every stored combination, in the order in which conflicts are looked for.
    [[nodiscard]] std::vector<TakenHotKey> takenHotKeys() const;

    // Stores and registers the combination of a command or scene; none clears it, or puts the default back
    // where there is one. The error is a sentence for the user, and nothing is changed then.
    std::expected<void, std::string> setHotkey(const HotKeySurface& surface,
                                               std::optional<HotKeyCombo> combo);

private:
    using Kind = HotKeySurface::Kind;
    struct Registered {
        HotKeyCombo combo;
        std::unique_ptr<HotKey> hotKey;
    };

    [[nodiscard]] std::optional<HotKeyCombo> stored(Kind surface) const;
    // False when it could not be written.
    [[nodiscard]] bool write(const HotKeySurface& surface, std::optional<HotKeyCombo> combo);
    void sync(Kind surface, const std::function<void()>& action);
    void syncEverything();
    [[nodiscard]] HotKeyStatus::State stateOf(const HotKeySurface& surface) const;
    void publish();

    ControllerContext& m_context;
    Actions m_actions;
    std::map<Kind, Registered> m_registered;
    SceneFlow& m_sceneFlow;
    SceneHotKeyRegistry& m_scenes = SceneHotKeyRegistry::shared();
};

} // namespace vantrel

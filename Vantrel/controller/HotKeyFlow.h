// The keyboard shortcuts: reads them from the settings and the scenes, registers them with the system, and
// changes them for the user.
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
        std::function<void()> showQuickSwitcher;
        std::function<void(const std::string& sceneID)> applyScene;
    };

    // Registers all shortcuts from settings and scenes, and again whenever the keyboard changes. The scenes
    // must already be published.
    HotKeyFlow(ControllerContext& context, SceneFlow& scenes, Actions actions);
    ~HotKeyFlow();
    HotKeyFlow(const HotKeyFlow&) = delete;
    HotKeyFlow& operator=(const HotKeyFlow&) = delete;

    // Registers the shortcuts that have changed in the settings.
    void settingsChanged() { syncEverything(); }

    // Each registers the stored combination of its command, replacing any previous one. An unchanged
    // registration stays, and one that the system refused is tried again.
    void syncRestoreHotKey();
    void syncSaveHotKey();
    void syncStashHotKey();
    void syncUndoHotkey();
    void syncQuickSwitcherHotkey();
    void syncSceneHotKeys();

    // Every stored combination, in the order in which conflicts are checked.
    [[nodiscard]] std::vector<TakenHotKey> takenHotKeys() const;

    // Stores and registers the combination of a command or scene. Passing none clears it, or returns it to
    // its default if it has one. On failure nothing changes, and the error is a sentence for the user.
    std::expected<void, std::string> setHotkey(const HotKeySurface& surface,
                                               std::optional<HotKeyCombo> combo);

private:
    using Kind = HotKeySurface::Kind;
    struct Registered {
        HotKeyCombo combo;
        std::unique_ptr<HotKey> hotKey;
    };

    [[nodiscard]] std::optional<HotKeyCombo> stored(Kind surface) const;
    // Returns false when it could not be written.
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

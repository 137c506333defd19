#include "Vantrel/controller/HotKeyFlow.h"

#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

namespace {

using Kind = HotKeySurface::Kind;

// In the order in which conflicts are checked.
constexpr std::array fixedSurfaces{Kind::fixedRestore, Kind::fixedSave, Kind::stash, Kind::quickSwitcher,
                                   Kind::undo};

std::uint32_t fixedID(Kind surface) {
    switch (surface) {
    case Kind::fixedRestore:
        return 1;
    case Kind::fixedSave:
        return 2;
    case Kind::stash:
        return 3;
    case Kind::undo:
        return 4;
    case Kind::quickSwitcher:
        return 5;
    case Kind::scene:
        break;
    }
    return 0;
}

} // namespace

HotKeyFlow::HotKeyFlow(ControllerContext& context, SceneFlow& scenes, Actions actions)
    : m_context(context), m_actions(std::move(actions)), m_sceneFlow(scenes) {
    m_context.ports.hotKeys.setChangeHandler([this] {
        m_registered.clear();
        m_scenes.clear();
        syncEverything();
    });
    syncEverything();
}

HotKeyFlow::~HotKeyFlow() {
    m_context.ports.hotKeys.setChangeHandler({});
    m_scenes.clear();
}

void HotKeyFlow::syncEverything() {
    // Drop all changed hotkeys first: one may have taken another's combination.
    std::erase_if(m_registered, [&](const auto& entry) { return stored(entry.first) != entry.second.combo; });
    m_scenes.dropChanged(m_context.state().scenes);
    syncRestoreHotKey();
    syncSaveHotKey();
    syncStashHotKey();
    syncUndoHotkey();
    syncQuickSwitcherHotkey();
    syncSceneHotKeys();
}

void HotKeyFlow::syncRestoreHotKey() {
    sync(Kind::fixedRestore, m_actions.restore);
}

void HotKeyFlow::syncSaveHotKey() {
    sync(Kind::fixedSave, m_actions.save);
}

void HotKeyFlow::syncStashHotKey() {
    sync(Kind::stash, m_actions.stash);
}

void HotKeyFlow::syncUndoHotkey() {
    sync(Kind::undo, m_actions.undo);
}

void HotKeyFlow::syncQuickSwitcherHotkey() {
    sync(Kind::quickSwitcher, m_actions.showQuickSwitcher);
}

void HotKeyFlow::syncSceneHotKeys() {
    m_scenes.sync(m_context.ports.hotKeys, m_context.state().scenes, m_actions.applyScene);
    publish();
}

std::optional<HotKeyCombo> HotKeyFlow::stored(Kind surface) const {
    const Settings& settings = m_context.settings;
    switch (surface) {
    case Kind::fixedRestore:
        return settings.restoreHotkey();
    case Kind::fixedSave:
        return settings.saveHotkey();
    case Kind::stash:
        return settings.stashHotkey();
    case Kind::quickSwitcher:
        return settings.quickSwitcherHotkey();
    case Kind::undo:
        return settings.undoHotkey();
    case Kind::scene:
        break;
    }
    return std::nullopt;
}

void HotKeyFlow::sync(Kind surface, const std::function<void()>& action) {
    const auto combo = stored(surface);
    const auto registered = m_registered.find(surface);
    if (registered != m_registered.end()) {
        if (registered->second.combo == combo) {
            return;
        }
        m_registered.erase(registered);
    }
    if (!combo || !action) {
        return;
    }
    if (auto hotKey = m_context.ports.hotKeys.add(fixedID(surface), *combo, action)) {
        m_registered.emplace(surface, Registered{*combo, std::move(hotKey)});
    }
}

std::vector<TakenHotKey> HotKeyFlow::takenHotKeys() const {
    std::vector<TakenHotKey> taken;
    for (const auto surface : fixedSurfaces) {
        if (const auto combo = stored(surface)) {
            taken.push_back({{surface, {}}, *combo, std::string(HotKeyRecording::commandLabel(surface))});
        }
    }
    for (const auto& scene : m_context.state().scenes) {
        if (const auto combo = scene.hotkey()) {
            taken.push_back({HotKeySurface::scene(scene.id), *combo, scene.name});
        }
    }
    return taken;
}

std::expected<void, std::string> HotKeyFlow::setHotkey(const HotKeySurface& surface,
                                                       std::optional<HotKeyCombo> combo) {
    if (combo) {
        if (const auto other = HotKeyCollisions::conflict(*combo, surface, takenHotKeys())) {
            return std::unexpected(HotKeyRecording::conflictMessage(*other));
        }
    }
    if (!write(surface, combo)) {
        return std::unexpected(tr("The shortcut could not be written to disk."));
    }
    syncEverything();
    return {};
}

bool HotKeyFlow::write(const HotKeySurface& surface, std::optional<HotKeyCombo> combo) {
    Settings& settings = m_context.settings;
    switch (surface.kind) {
    case Kind::fixedRestore:
        return settings.setRestoreHotkey(combo.value_or(HotKeyDefaults::restore));
    case Kind::fixedSave:
        return settings.setSaveHotkey(combo.value_or(HotKeyDefaults::save));
    case Kind::stash:
        return settings.setStashHotkey(combo.value_or(HotKeyDefaults::stash));
    case Kind::quickSwitcher:
        return settings.setQuickSwitcherHotkey(combo);
    case Kind::undo:
        return settings.setUndoHotkey(combo);
    case Kind::scene:
        break;
    }
    return m_sceneFlow
        .setHotkey(surface.sceneID, combo ? std::optional(combo->keyCode) : std::nullopt,
                   combo ? std::optional(combo->modifiers) : std::nullopt)
        .has_value();
}

HotKeyStatus::State HotKeyFlow::stateOf(const HotKeySurface& surface) const {
    using State = HotKeyStatus::State;
    const auto& refused = m_scenes.refused();
    const bool isRefused = surface.kind == Kind::scene
                               ? std::ranges::find(refused, surface.sceneID) != refused.end()
                               : !m_registered.contains(surface.kind);
    return isRefused ? State::refused : State::registered;
}

void HotKeyFlow::publish() {
    std::vector<HotKeyStatus> all;
    for (const auto& taken : takenHotKeys()) {
        all.push_back({taken, stateOf(taken.surface)});
    }
    if (all == m_context.state().hotKeys) {
        return;
    }
    for (const auto& each : all) {
        if (each.state == HotKeyStatus::State::refused &&
            std::ranges::find(m_context.state().hotKeys, each) == m_context.state().hotKeys.end()) {
            m_context.log(
                fmt::format("shortcuts: {} for \"{}\" was refused; another program holds it, or this "
                            "keyboard has no such key",
                            HotKeyText::text(each.taken.combo), each.taken.label));
        }
    }
    m_context.publisher.publish<SettingsTopic>([&](auto& settings) { settings.hotKeys = std::move(all); });
}

} // namespace vantrel

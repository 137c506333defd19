#include "VantrelCore/commands/HotKeyRecording.h"

namespace vantrel::HotKeyRecording {

std::string_view prompt(const HotKeySurface& surface, Place place) {
    if (place == Place::menuPanelScene) {
        return "Press keys… (Esc cancels)";
    }
    switch (surface.kind) {
    case HotKeySurface::Kind::fixedRestore:
    case HotKeySurface::Kind::fixedSave:
    case HotKeySurface::Kind::stash:
        return "Press keys… (Esc resets)";
    case HotKeySurface::Kind::scene:
    case HotKeySurface::Kind::quickSwitcher:
    case HotKeySurface::Kind::undo:
        break;
    }
    return "Press keys… (Esc clears)";
}

Outcome outcome(HotKeyCombo pressed, const HotKeySurface& surface, Place place,
                const std::vector<TakenHotKey>& taken) {
    constexpr HotKeyCombo escape{.keyCode = 53, .modifiers = 0};
    if (pressed == escape) {
        return place == Place::menuPanelScene ? Outcome(Cancel{}) : Outcome(Store{});
    }
    if (const auto other = HotKeyCollisions::conflict(pressed, surface, taken)) {
        return Refuse{conflictMessage(*other)};
    }
    return Store{pressed};
}

std::string conflictMessage(const TakenHotKey& other) {
    return "Already used by " + other.label;
}

std::string_view commandLabel(HotKeySurface::Kind kind) {
    switch (kind) {
    case HotKeySurface::Kind::fixedRestore:
        return "Restore now";
    case HotKeySurface::Kind::fixedSave:
        return "Save layout now";
    case HotKeySurface::Kind::stash:
        return "Stash";
    case HotKeySurface::Kind::quickSwitcher:
        return "Quick switcher";
    case HotKeySurface::Kind::undo:
        return "Undo last restore";
    case HotKeySurface::Kind::scene:
        break;
    }
    return "";
}

} // namespace vantrel::HotKeyRecording

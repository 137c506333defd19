#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/text/Translation.h"

namespace vantrel::HotKeyRecording {

std::string_view prompt(const HotKeySurface& surface, Place place) {
    if (place == Place::menuPanelScene) {
        return tr("Press keys… (Esc cancels)");
    }
    switch (surface.kind) {
    case HotKeySurface::Kind::fixedRestore:
    case HotKeySurface::Kind::fixedSave:
    case HotKeySurface::Kind::stash:
        return tr("Press keys… (Esc resets)");
    case HotKeySurface::Kind::scene:
    case HotKeySurface::Kind::quickSwitcher:
    case HotKeySurface::Kind::undo:
        break;
    }
    return tr("Press keys… (Esc clears)");
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
    return trf("Already used by {}", other.label);
}

std::string_view commandLabel(HotKeySurface::Kind kind) {
    switch (kind) {
    case HotKeySurface::Kind::fixedRestore:
        return tr("Restore now");
    case HotKeySurface::Kind::fixedSave:
        return tr("Save layout now");
    case HotKeySurface::Kind::stash:
        return tr("Stash");
    case HotKeySurface::Kind::quickSwitcher:
        return tr("Quick switcher");
    case HotKeySurface::Kind::undo:
        return tr("Undo last restore");
    case HotKeySurface::Kind::scene:
        break;
    }
    return "";
}

} // namespace vantrel::HotKeyRecording

#include "Vantrel/controller/PublishedState.h"

#include <algorithm>

namespace vantrel {

const Layout* PublishedState::activeLayout() const {
    const auto found = std::ranges::find(currentLayouts, activeLayoutName, &Layout::layoutName);
    return found == currentLayouts.end() ? nullptr : &*found;
}

const Stash* PublishedState::activeStash() const {
    const auto found = std::ranges::find(stashes, configID, &Stash::configID);
    return found == stashes.end() ? nullptr : &*found;
}

const UndoSlot* PublishedState::applicableUndo() const {
    return undoSlot && undoSlot->configID == configID ? &*undoSlot : nullptr;
}

bool PublishedState::isPinPausedForUser() const {
    return pinPause && pinPause->cause == PinPause::Cause::userAskedForAnother;
}

const std::string& PublishedState::deskName() const {
    const Layout* const active = activeLayout();
    if (active != nullptr) {
        return active->name;
    }
    // The active name may belong to a layout that has not been learned yet.
    return currentLayouts.empty() ? configName : currentLayouts.front().name;
}

const Scene* PublishedState::lastAppliedScene() const {
    const auto found =
        std::ranges::find_if(scenes, [this](const Scene& scene) { return scene.id == lastAppliedSceneID; });
    return found == scenes.end() ? nullptr : &*found;
}

std::optional<std::int64_t> PublishedState::windowsLearned() const {
    const Layout* layout = activeLayout();
    return layout != nullptr ? std::optional(static_cast<std::int64_t>(layout->windows.size() +
                                                                       layout->otherWindows.size()))
                             : std::nullopt;
}

} // namespace vantrel

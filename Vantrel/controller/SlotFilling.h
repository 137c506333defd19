// Moves live windows into the open slots of a scene.
#pragma once

#include "Vantrel/controller/DeskCapture.h"
#include "VantrelCore/scenes/SceneOnDesk.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <set>
#include <string>
#include <vector>

namespace vantrel::SlotFilling {

// The live windows that may fill slots.
struct Candidates {
    std::vector<LiveWindow> ordinary;
    // Panels and dialogs: used when no ordinary window of their application is left.
    std::vector<LiveWindow> panels;
};

struct Filled {
    SceneSlot slot;
    // The window's title and frame in the slot.
    std::string title;
    Rect frame;
    WindowID window{};
    // Where the window was before.
    Rect from;
    bool isPanel = false;
};

struct Result {
    std::vector<Filled> filled;
    // Slots whose windows refused to go there.
    std::vector<SceneSlot> refused;
    // Slots without a window.
    std::vector<SceneSlot> open;
    // Applications whose start would fill open slots, in scene order.
    std::vector<std::string> launchBundleIDs;
};

// Blocks. All windows are placed together.
[[nodiscard]] Result fill(const std::vector<SceneSlot>& slots, const Candidates& candidates,
                          const std::set<std::string>& runningBundleIDs,
                          const std::vector<DisplayInfo>& displays, RestoreEngine::Sizes sizes, Desk& desk,
                          const MovePermit& permit, Clock& clock);

} // namespace vantrel::SlotFilling

// Brings live windows into the open slots of a scene.
#pragma once

#include "Vantrel/controller/DeskCapture.h"
#include "VantrelCore/ports/Background.h"
#include "VantrelCore/scenes/SceneOnDesk.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <set>
#include <string>
#include <vector>

namespace vantrel::SlotFilling {

// The live windows that may be taken.
struct Candidates {
    std::vector<CurrentWindow> ordinary;
    // And dialogs: taken when no ordinary window of their application is left.
    std::vector<CurrentWindow> panels;
};

struct Filled {
    SceneSlot slot;
    // Under this title and at this frame.
    std::string title;
    Rect frame;
    AXWindowHandle handle;
    bool isPanel = false;
};

struct Result {
    std::vector<Filled> filled;
    // Their windows would not stand there.
    std::vector<SceneSlot> refused;
    // Nobody came for them.
    std::vector<SceneSlot> open;
    // Applications whose start would fill open slots, in scene order.
    std::vector<std::string> launchBundleIDs;
};

// Blocks; windows of different applications are placed at the same time.
[[nodiscard]] Result fill(const std::vector<SceneSlot>& slots, const Candidates& candidates,
                          const std::set<std::string>& runningBundleIDs,
                          const std::vector<DisplayInfo>& displays, RestoreEngine::Sizes sizes, Clock& clock,
                          Background& background);

} // namespace vantrel::SlotFilling

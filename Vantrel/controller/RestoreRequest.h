// One restore that somebody asked for: waiting for its turn, or running.
#pragma once

#include "Vantrel/controller/RestoreOutcome.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/scenes/SceneOnDesk.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

namespace RestorePass {
struct Result;
}

enum class Announcement : std::uint8_t { silent, announce };

// Who started it: a display change, after which the window manager may still be moving windows, or a person.
enum class RestoreTrigger : std::uint8_t { automatic, manual };

// What the usage totals count it as.
enum class RestorePurpose : std::uint8_t { restore, sceneSwitch, stashReturn, undo };

struct RestoreRequest {
    // With the user's rules applied.
    Layout layout;
    std::vector<DisplayInfo> displays;
    // In words, for log and history: "display change".
    std::string reason;
    RestoreTrigger trigger = RestoreTrigger::manual;
    RestorePurpose purpose = RestorePurpose::restore;
    Announcement announcement = Announcement::silent;
    // What the announcement gives as the cause: "LG UltraFine reconnected".
    std::string announcedCause{};
    std::optional<std::string> sceneName = std::nullopt;
    // The scene whose layout this is: its open slots are filled too.
    std::optional<SceneOnDesk> scene = std::nullopt;
    RestoreEngine::Raising raising = RestoreEngine::Raising::leave;
    // Of an undo: the live windows that the layout's windows are, index by index. Else they are looked for.
    std::vector<AXWindowHandle> handles = {};
    // If any, called on the main thread when its turn has come, before anything is read or moved; may still
    // change what is restored, but not the desk.
    std::function<void(RestoreRequest&)> prepare = {};
    // The window system is to work off first what it has been asked for.
    bool awaitsQuiet = false;
    // If any, called when an undo has taken this restore back.
    std::function<void()> undone = {};
    // If any, told when it has run to its end, before `done` and history; may add to what the report tells.
    std::function<void(RestorePass::Result&)> finished = {};
    // If any, told what came of it.
    RestoreOutcome::Done done = {};

    void tell(const RestoreOutcome& outcome) const {
        if (done) {
            done(outcome);
        }
    }
};

} // namespace vantrel

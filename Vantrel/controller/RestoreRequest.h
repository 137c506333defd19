// A request for one restore: a value, of which a worker may have a copy, and the callbacks of whoever wants
// it, which never leave the main thread.
#pragma once

#include "Vantrel/controller/RestoreOutcome.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/scenes/SceneOnDesk.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vantrel {

namespace RestorePass {
struct Result;
}

enum class Announcement : std::uint8_t { silent, announce };

// What started it: a display change, after which the window manager may still be moving windows, or a person.
enum class RestoreTrigger : std::uint8_t { automatic, manual };

// The category in the usage totals.
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
    // The cause to announce: "LG UltraFine reconnected".
    std::string announcedCause{};
    std::optional<std::string> sceneName = std::nullopt;
    // The scene that the layout belongs to; its open slots are filled too.
    std::optional<SceneOnDesk> scene = std::nullopt;
    RestoreEngine::Raising raising = RestoreEngine::Raising::leave;
    // For an undo: the live windows that correspond to the layout's windows, index by index. Otherwise the
    // windows are matched.
    std::vector<WindowID> windows = {};
    // Applications to show before anything is captured, if an earlier scene has hidden them.
    std::vector<std::string> unhides = {};
    // If set, hides all other regular applications once everything is in place. Only for a scene.
    std::optional<std::set<std::string>> hidesAllBut = std::nullopt;
    // Not announced, nor recorded, if every window turns out to be in place.
    bool isCheck = false;
};

// Each is called if it is set.
struct RestoreCallbacks {
    // Called when its turn comes, before anything is read or moved. May change what is restored, but not the
    // desk.
    std::function<void(RestoreRequest&, RestoreCallbacks&)> prepare = {};
    // Called when an undo has reverted this restore.
    std::function<void()> undone = {};
    // Called at the end of the restore, before `done` and the history; may add to the report.
    std::function<void(RestorePass::Result&)> finished = {};
    RestoreOutcome::Done done = {};

    void tell(const RestoreOutcome& outcome) const {
        if (done) {
            done(outcome);
        }
    }
};

} // namespace vantrel

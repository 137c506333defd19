// One restore that somebody asked for: waiting for its turn, or running.
#pragma once

#include "Vantrel/controller/RestoreOutcome.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

enum class Announcement : std::uint8_t { silent, announce };

// Who started it: a display change, after which the window manager may still be moving windows, or a person.
enum class RestoreTrigger : std::uint8_t { automatic, manual };

// What the usage totals count it as.
enum class RestorePurpose : std::uint8_t { restore, stashReturn, undo };

struct RestoreRequest {
    // With the user's rules applied.
    Layout layout;
    std::vector<DisplayInfo> displays;
    // In words, for log and history: "display change".
    std::string reason;
    RestoreTrigger trigger = RestoreTrigger::manual;
    RestorePurpose purpose = RestorePurpose::restore;
    Announcement announcement = Announcement::silent;
    std::optional<std::string> sceneName = std::nullopt;
    RestoreEngine::Raising raising = RestoreEngine::Raising::leave;
    // If any, told once on the main thread what came of it.
    std::function<void(const RestoreOutcome&)> done = {};

    void tell(const RestoreOutcome& outcome) const {
        if (done) {
            done(outcome);
        }
    }
};

} // namespace vantrel

// The outcome of a user's request to save the desk as a scene.
#pragma once

#include "Vantrel/controller/SaveOutcome.h"
#include "VantrelCore/model/Scene.h"
#include "VantrelCore/scenes/SceneProblem.h"

#include <optional>
#include <string>

namespace vantrel {

struct SceneSaveOutcome {
    enum class Kind : std::uint8_t {
        added,
        // A scene of this desk with the same name now has the desk's layout.
        updated,
        // `problem` says why.
        refused,
        // There was no desk to save; `hindrance` says why.
        noDesk,
    };

    Kind kind = Kind::added;
    // Set only when added or updated.
    std::optional<Scene> scene = std::nullopt;
    SceneProblem problem = SceneProblem::writeFailed;
    SaveOutcome::Kind hindrance = SaveOutcome::Kind::noDisplays;

    [[nodiscard]] bool isSaved() const { return kind == Kind::added || kind == Kind::updated; }

    // A sentence for people who used an action or a command.
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel

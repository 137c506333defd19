// The actions that the desktop offers its user (the Shortcuts application on macOS, anything on the session
// bus on Linux): titles, parameters, results and messages. Each desktop's provider is a thin wrapper around
// this.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "VantrelCore/text/Translation.h"

#include <array>
#include <cstdint>
#include <expected>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// A scene as a parameter value.
struct SceneEntity {
    std::string id;
    std::string name;

    bool operator==(const SceneEntity&) const = default;
};

struct VantrelIntentError {
    enum class Kind : std::uint8_t { nothingHappened, notRunning };

    Kind kind = Kind::nothingHappened;
    // Shown to the user unchanged.
    std::string message;

    bool operator==(const VantrelIntentError&) const = default;
};

struct IntentDescription {
    std::string_view identifier;
    std::string_view title;
    // Empty for an action without a parameter.
    std::string_view parameter;
    // The phrase a user says to run it; "%1" stands for the application's name. Empty means no phrase.
    std::string_view phrase;
    // From Apple's symbol set.
    std::string_view symbol;
};

class Intents {
public:
    // The message shown to the user on success.
    using Result = std::expected<std::string, VantrelIntentError>;
    using Done = std::function<void(const Result&)>;

    static constexpr const char* vantrelIsNotRunning = marked("Vantrel is not running.");

    static constexpr std::array<IntentDescription, 5> all{{
        {"RestoreNowIntent", "Restore Now", "", "Restore my windows with %1", "arrow.uturn.backward"},
        {"ApplySceneIntent", "Apply Scene", "scene", "", "square.grid.2x2"},
        {"SaveSceneIntent", "Save Scene", "name", "Save this desk with %1", "square.and.arrow.down"},
        {"StashIntent", "Stash or Bring Back", "", "Stash my desk with %1", "tray.and.arrow.down"},
        {"UndoLastRestoreIntent", "Undo Last Restore", "", "Undo the last restore with %1",
         "arrow.uturn.left"},
    }};

    // `shared` returns the running controller, null when there is none. Use on the main thread only.
    explicit Intents(std::function<AppController*()> shared) : m_shared(std::move(shared)) {}

    // Each calls `done` once, when it has ended, with what happened or why nothing did.
    void restoreNow(const Done& done);
    void applyScene(const std::string& sceneID, const Done& done);
    void saveScene(const std::string& name, const Done& done);
    void stash(const Done& done);
    void undoLastRestore(const Done& done);

    // The choices for the scene parameter of Apply Scene; empty while nothing is running.
    [[nodiscard]] std::vector<SceneEntity> scenes() const;

private:
    // Returns null after telling `done` that Vantrel is not running.
    [[nodiscard]] AppController* controller(const Done& done) const;

    std::function<AppController*()> m_shared;
};

} // namespace vantrel

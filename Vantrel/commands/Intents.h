// The actions that the desktop offers its user (on macOS the Shortcuts application, on Linux anything on the
// session bus): titles, parameters, results and messages. A desktop's own provider is a thin shell over this.
#pragma once

#include "Vantrel/controller/AppController.h"

#include <array>
#include <cstdint>
#include <expected>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// A scene as the value of a parameter.
struct SceneEntity {
    std::string id;
    std::string name;

    bool operator==(const SceneEntity&) const = default;
};

struct VantrelIntentError {
    enum class Kind : std::uint8_t { nothingHappened, notRunning };

    Kind kind = Kind::nothingHappened;
    // Shown to the user as it is.
    std::string message;

    bool operator==(const VantrelIntentError&) const = default;
};

struct IntentDescription {
    std::string_view identifier;
    std::string_view title;
    // Empty for an action without one.
    std::string_view parameter;
    // What a user says to have it done; the application's name stands for "%1". Empty: offered without words.
    std::string_view phrase;
    // Of Apple's symbol set.
    std::string_view symbol;
};

class Intents {
public:
    // What the user is told when it is done.
    using Result = std::expected<std::string, VantrelIntentError>;
    using Done = std::function<void(const Result&)>;

    static constexpr std::string_view vantrelIsNotRunning = "Vantrel is not running.";

    static constexpr std::array<IntentDescription, 5> all{{
        {"RestoreNowIntent", "Restore Now", "", "Restore my windows with %1", "arrow.uturn.backward"},
        {"ApplySceneIntent", "Apply Scene", "scene", "", "square.grid.2x2"},
        {"SaveSceneIntent", "Save Scene", "name", "Save this desk with %1", "square.and.arrow.down"},
        {"StashIntent", "Stash or Bring Back", "", "Stash my desk with %1", "tray.and.arrow.down"},
        {"UndoLastRestoreIntent", "Undo Last Restore", "", "Undo the last restore with %1",
         "arrow.uturn.left"},
    }};

    // `shared` gives the running controller, null when there is none. Everything is used on the main thread.
    explicit Intents(std::function<AppController*()> shared) : m_shared(std::move(shared)) {}

    // Each tells `done` once, when it has ended: what happened, or why nothing did.
    void restoreNow(const Done& done);
    void applyScene(const std::string& sceneID, const Done& done);
    void saveScene(const std::string& name, const Done& done);
    void stash(const Done& done);
    void undoLastRestore(const Done& done);

    // The scenes that the parameter of Apply Scene is chosen from; none while nothing runs.
    [[nodiscard]] std::vector<SceneEntity> scenes() const;
    // Those of them that exist, in the order asked for.
    [[nodiscard]] std::vector<SceneEntity> scenes(const std::vector<std::string>& ids) const;

private:
    // Null after `done` was told that nothing runs.
    [[nodiscard]] AppController* controller(const Done& done) const;

    std::function<AppController*()> m_shared;
};

} // namespace vantrel

// The user's scenes: saving, renaming, changing and deleting them, and publishing what is stored.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/SceneSaveOutcome.h"
#include "Vantrel/controller/SlotFilling.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

class SceneFlow {
public:
    // The scene as it is now, or why it was left as it was.
    using EditResult = std::expected<Scene, SceneProblem>;

    // Where its windows were placed: on the desk that the scene is of, or on another one, as it wants them
    // there.
    enum class Placed : std::uint8_t { onItsDesk, elsewhere };

    explicit SceneFlow(ControllerContext& context);

    // Saves the desk as it stands under a new name, or anew under the name of a scene of this desk that is
    // not pinned. `done` is called once, on the main thread.
    void saveCurrentAsScene(const std::string& name, std::function<void(const SceneSaveOutcome&)> done);
    // A scene of this desk without windows, to be filled in the editor.
    SceneSaveOutcome createEmptyScene(std::string_view name);

    EditResult updateSceneLayout(const std::string& id, const Layout& layout);
    EditResult rename(const std::string& id, std::string_view name);
    // Also a pinned one: whoever asks the user protects it.
    EditResult deleteScene(const std::string& id);
    EditResult setPinned(bool isPinned, const std::string& id);
    EditResult setOpensMissingApps(bool opens, const std::string& id);
    EditResult setWallpaper(const std::optional<SceneWallpaper>& wallpaper, const std::string& id);
    EditResult setHotkey(const std::string& id, std::optional<std::int64_t> keyCode,
                         std::optional<std::int64_t> modifiers);

    // Windows have taken these slots of the scene: those that were kept free for them are its windows now.
    // A pinned scene stays as it is.
    void solidify(const std::string& id, const std::vector<SlotFilling::Filled>& filled, Placed placed);
    // The scene last applied on this desk; none when that was undone and there was none before.
    void setLastApplied(const std::optional<std::string>& id);

    [[nodiscard]] std::vector<Scene> scenesForCurrentDesk() const;
    // The name of a desk that a layout is stored for; none of any other.
    [[nodiscard]] std::optional<std::string> deskName(const std::string& configID);

private:
    [[nodiscard]] std::optional<SceneProblem> problemWithNewName(std::string_view name);
    [[nodiscard]] SceneSaveOutcome add(std::string_view name, const Layout& layout);
    [[nodiscard]] SceneSaveOutcome save(std::string_view name, const Layout& layout);
    [[nodiscard]] bool isOnAnotherDesk(const Scene& scene) const;
    template <typename Change>
    EditResult edited(const std::string& id, Change&& change);

    ControllerContext& m_context;
    SceneStore& m_store;
};

} // namespace vantrel

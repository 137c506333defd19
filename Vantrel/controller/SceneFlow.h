// Saves, renames, changes and deletes the user's scenes, and publishes the stored ones.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/SceneSaveOutcome.h"
#include "Vantrel/controller/SlotFilling.h"

#include <cstddef>
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
    // The changed scene, or why it was not changed.
    using EditResult = std::expected<Scene, SceneProblem>;

    // Whether the windows were placed on the scene's own desk or adapted to another one.
    enum class Placed : std::uint8_t { onItsDesk, elsewhere };

    explicit SceneFlow(ControllerContext& context);

    // Saves the desk as a new scene, or updates an unpinned scene of this desk with the same name. `done` is
    // called once, on the main thread.
    void saveCurrentAsScene(const std::string& name, std::function<void(const SceneSaveOutcome&)> done);
    // Why no new scene can have this name; nameUsed if one of this desk has it, which saving would update.
    [[nodiscard]] std::optional<SceneProblem> problemWithNewName(std::string_view name);
    // Why this scene cannot have this name.
    [[nodiscard]] std::optional<SceneProblem> problemWithRename(const std::string& id, std::string_view name);
    // Creates a scene of this desk without windows, to be filled in the editor.
    SceneSaveOutcome createEmptyScene(std::string_view name);

    // Adds a copy after the scene, on the same desk, without its shortcut and not pinned. Triggers keep
    // applying the original.
    EditResult duplicate(const std::string& id);
    // Gives the scene this position among the scenes of its desk, or the last one.
    EditResult move(const std::string& id, std::size_t position);

    // Stores what the editor changes: layout, wallpapers, and whether missing applications are opened.
    EditResult saveEdited(const Scene& edited);
    // Stores that as a new scene of the edited one's desk, without its shortcut and not pinned.
    EditResult saveEditedAs(const Scene& edited, const std::string& name);
    // The windows of the desk as they are, without storing them; none when they cannot be read now.
    void captureDesk(std::function<void(std::optional<Layout>)> done);
    EditResult updateSceneLayout(const std::string& id, const Layout& layout);
    EditResult rename(const std::string& id, std::string_view name);
    // Deletes pinned scenes too: the caller must ask the user for confirmation, or offer to undo it
    // (RecentDeletions).
    EditResult deleteScene(const std::string& id);
    EditResult setPinned(bool isPinned, const std::string& id);
    EditResult setOpensMissingApps(bool opens, const std::string& id);
    EditResult setWallpaper(const std::optional<SceneWallpaper>& wallpaper, const std::string& id);
    EditResult setHotkey(const std::string& id, std::optional<std::int64_t> keyCode,
                         std::optional<std::int64_t> modifiers);

    // Turns ghosts of the scene into real windows once they have been filled. A pinned scene does not change.
    void solidify(const std::string& id, const std::vector<SlotFilling::Filled>& filled, Placed placed);
    // Sets the scene last applied on this desk; none when that was undone and there was none before.
    void setLastApplied(const std::optional<std::string>& id);

    [[nodiscard]] std::vector<Scene> scenesForCurrentDesk() const;
    // The name of a desk that has a stored layout, or of the current desk; otherwise none.
    [[nodiscard]] std::optional<std::string> deskName(const std::string& configID);

private:
    // In the background; a failure is logged.
    [[nodiscard]] Saving later(std::string failure);
    [[nodiscard]] SceneSaveOutcome add(std::string_view name, const Layout& layout);
    [[nodiscard]] SceneSaveOutcome save(std::string_view name, const Layout& layout);
    [[nodiscard]] bool isOnAnotherDesk(const Scene& scene) const;
    void noteWallpapers(const std::vector<std::string>& files);
    EditResult putBack(const Scene& scene, std::size_t index);
    template <typename Change>
    EditResult edited(const std::string& id, Change&& change);

    ControllerContext& m_context;
    SceneStore& m_store;
};

} // namespace vantrel

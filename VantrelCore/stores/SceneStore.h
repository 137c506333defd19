// "scenes.json": the scenes of all desks, and the last one applied on each desk.
#pragma once

#include "VantrelCore/model/Scene.h"
#include "VantrelCore/stores/JsonStore.h"
#include "VantrelCore/stores/SceneStoreError.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

class SceneStore {
public:
    static constexpr std::int64_t schemaVersion = 1;
    // For all desks together.
    static constexpr std::size_t maxScenes = 12;
    // In user-perceived characters.
    static constexpr std::size_t maxNameLength = 30;

    struct StoreFile {
        std::int64_t version = schemaVersion;
        // In the user's order; new ones are added at the end.
        std::vector<Scene> scenes;
        // configID to scene id; may be missing in the file.
        std::map<std::string, std::string> lastAppliedByConfig;
        // The scenes in the order in which they were last applied, newest first; may be missing in the file.
        std::vector<std::string> recentlyApplied;

        bool operator==(const StoreFile&) const = default;
    };

    template <typename T>
    using Result = std::expected<T, SceneStoreError>;

    // Creates the directory if missing; reads nothing yet.
    [[nodiscard]] static std::expected<SceneStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files);

    explicit SceneStore(JsonStore<StoreFile> file);

    // Reads the file unless its content is in the cache; see JsonStore.
    void read() { m_file.read(); }

    [[nodiscard]] std::vector<Scene> allScenes();
    [[nodiscard]] std::optional<Scene> scene(const std::string& id);
    // The first scene with that name on any desk, ignoring case and white space around `name`.
    [[nodiscard]] std::optional<Scene> sceneNamed(std::string_view name);

    // 1 to 30 characters, not counting surrounding white space.
    [[nodiscard]] static bool isValidName(std::string_view name);

    // On error, file and store are unchanged. See Saving for the exception.

    // Stores the scene under its trimmed name, which another scene may already have. `at` is its index; the
    // last one unless stated.
    [[nodiscard]] Result<Scene> add(Scene scene, std::optional<std::size_t> at = {});
    // invalidName also if another scene has the name, ignoring case.
    [[nodiscard]] Result<Scene> rename(const std::string& id, std::string_view name);
    // Refused for a pinned scene.
    [[nodiscard]] Result<Scene> updateLayout(const std::string& id, const Layout& layout,
                                             const Saving& saving = {});
    [[nodiscard]] Result<Scene> updateSceneLayout(const std::string& id, const Layout& layout,
                                                  const Saving& saving = {}) {
        return updateLayout(id, layout, saving);
    }
    // Stores the layout, the wallpapers and whether missing applications are opened, of the scene with the
    // same id. Refused for a pinned scene.
    [[nodiscard]] Result<Scene> updateEdited(const Scene& edited);
    // Gives the scene this position among the scenes of its desk, or the last one. Scenes of other desks stay
    // where they are.
    [[nodiscard]] Result<void> move(const std::string& id, std::size_t position);
    // Deletes pinned scenes too; protecting them is up to the interface. False when the write failed.
    bool deleteScene(const std::string& id);
    [[nodiscard]] Result<void> setPinned(bool pinned, const std::string& id);
    [[nodiscard]] Result<void> setOpensMissingApps(bool opens, const std::string& id);
    // If either is missing, the scene has no hotkey.
    [[nodiscard]] Result<void> updateHotkey(const std::string& id, std::optional<std::int64_t> keyCode,
                                            std::optional<std::int64_t> modifiers);
    // A wallpaper without displays is stored as none.
    [[nodiscard]] Result<void> setWallpaper(const std::optional<SceneWallpaper>& wallpaper,
                                            const std::string& id);

    [[nodiscard]] std::optional<std::string> lastAppliedSceneID(const std::string& configID);
    // Newest first, on all desks together.
    [[nodiscard]] std::vector<std::string> recentlyApplied() { return m_file.load().recentlyApplied; }
    // False when the write failed.
    bool setLastAppliedScene(const std::string& id, const std::string& configID, const Saving& saving = {});
    // Sets it again after it was cleared; the order of recentlyApplied() stays. False when the write failed.
    bool putBackLastAppliedScene(const std::string& id, const std::string& configID);
    // Clears the desk's last applied scene. False when the write failed.
    bool forgetLastAppliedScene(const std::string& configID, const Saving& saving = {});

    // The desk `from` is now known as `to`, with these displays in the same places; see LayoutStore.
    bool moveDesk(const std::string& from, const std::string& to, const std::vector<DisplayInfo>& displays,
                  const Saving& saving = {});

private:
    template <typename Change>
    Result<Scene> changeScene(const std::string& id, Change&& change, const Saving& saving = {});

    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const SceneStore::StoreFile& file);
void from_json(const nlohmann::json& json, SceneStore::StoreFile& file);

} // namespace vantrel

// Shows how many of the allowed scenes are used, once the limit is near.
namespace vantrel::SceneCapMeter {

inline constexpr std::size_t showThreshold = 9;

[[nodiscard]] constexpr bool shouldShow(std::size_t count) {
    return count >= showThreshold;
}

// "9 of 12".
[[nodiscard]] std::string label(std::size_t count);

} // namespace vantrel::SceneCapMeter

// "layouts.json": per desk any number of named layouts, the name of the active one, and the rules per
// application.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/stores/JsonStore.h"

#include <expected>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class LayoutStore {
public:
    static constexpr std::int64_t schemaVersion = 2;

    struct StoreFile {
        std::int64_t version = schemaVersion;
        // In the order of saving.
        std::vector<Layout> layouts;
        // configID to layoutName.
        std::optional<std::map<std::string, std::string>> activeLayouts;
        // Sorted by appName.
        std::optional<std::vector<AppRule>> rules;

        bool operator==(const StoreFile&) const = default;
    };

    // Creates the directory when missing. Nothing is read yet.
    [[nodiscard]] static std::expected<LayoutStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files);

    [[nodiscard]] std::vector<Layout> allLayouts();
    // "Default" first, then by layoutName in byte order.
    [[nodiscard]] std::vector<Layout> layouts(const std::string& configID);
    [[nodiscard]] std::optional<Layout> layout(const std::string& configID, const std::string& layoutName);

    // The bools say whether the whole file was written; false leaves everything as it was.

    // Replaces the layout of the same desk and name.
    bool save(const Layout& layout);
    // The same, and makes it the active layout of its desk.
    bool saveAsActive(const Layout& layout);
    // Chooses a new active layout when the active one goes.
    void deleteLayout(const std::string& configID, const std::string& layoutName);
    // Renames the desk, in the first layout of that desk, whatever its layoutName.
    void rename(const std::string& configID, const std::string& layoutName, const std::string& name);
    // Names the desk in all its layouts. False without writing when it has none.
    bool renameDesk(const std::string& configID, const std::string& name);
    // Gives a layout another name within its desk; it stays active when it was. False without writing when
    // there is no such layout or one of the new name.
    bool renameLayout(const std::string& configID, const std::string& layoutName, const std::string& newName);
    [[nodiscard]] std::string activeLayoutName(const std::string& configID);
    bool setActiveLayout(const std::string& layoutName, const std::string& configID);
    // False without writing when there is no such layout.
    bool setPinned(bool pinned, const std::string& configID, const std::string& layoutName);

    [[nodiscard]] std::vector<AppRule> rules();
    // Replaces the rule of the same application; the list stays sorted by appName, localized and without
    // regard to case.
    bool setRule(const AppRule& rule);
    bool removeRule(const std::string& bundleID);

private:
    explicit LayoutStore(JsonStore<StoreFile> file);

    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const LayoutStore::StoreFile& file);
void from_json(const nlohmann::json& json, LayoutStore::StoreFile& file);

} // namespace vantrel

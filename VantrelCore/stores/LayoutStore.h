// "layouts.json": the named layouts of each desk, the active one's name, and the per-application rules.
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
        // In saving order.
        std::vector<Layout> layouts;
        // configID to layoutName.
        std::optional<std::map<std::string, std::string>> activeLayouts;
        // Sorted by appName.
        std::optional<std::vector<AppRule>> rules;
        // A configID under which a desk was known, to the one that has its layouts now.
        std::optional<std::map<std::string, std::string>> sameDesks;

        bool operator==(const StoreFile&) const = default;
    };

    // Creates the directory if missing; reads nothing yet.
    [[nodiscard]] static std::expected<LayoutStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files);

    [[nodiscard]] std::vector<Layout> allLayouts();
    // "Default" first, then by layoutName in byte order.
    [[nodiscard]] std::vector<Layout> layouts(const std::string& configID);
    [[nodiscard]] std::optional<Layout> layout(const std::string& configID, const std::string& layoutName);

    // Reads the file unless its content is in the cache; see JsonStore.
    void read() { m_file.read(); }

    // The bool results report whether the whole file was written; false means that nothing changed. See
    // Saving for the exception.

    // Replaces the layout with the same desk and name.
    bool save(const Layout& layout, const Saving& saving = {});
    // The same, and makes it the active layout of its desk.
    bool saveAsActive(const Layout& layout);
    // Chooses a new active layout if the active one is deleted.
    void deleteLayout(const std::string& configID, const std::string& layoutName);
    // Renames the desk in its first layout only, whatever that layout's layoutName.
    void rename(const std::string& configID, const std::string& layoutName, const std::string& name);
    // Renames the desk in all its layouts. False, without writing, if it has none.
    bool renameDesk(const std::string& configID, const std::string& name);
    // Renames a layout within its desk; it stays active if it was. False, without writing, if there is no
    // such layout or the new name is taken.
    bool renameLayout(const std::string& configID, const std::string& layoutName, const std::string& newName);
    [[nodiscard]] std::string activeLayoutName(const std::string& configID);
    bool setActiveLayout(const std::string& layoutName, const std::string& configID,
                         const Saving& saving = {});
    // False, without writing, if there is no such layout.
    bool setPinned(bool pinned, const std::string& configID, const std::string& layoutName);

    // The desk `from` is now known as `to`, with these displays in the same places: its layouts, the active
    // one's name and rules for its displays move there. Layouts of `to` whose names are taken then get
    // another name. False, without writing, if `from` has no layouts.
    bool moveDesk(const std::string& from, const std::string& to, const std::vector<DisplayInfo>& displays,
                  const Saving& saving = {});
    // All that the file has of one desk.
    struct DeskRecords {
        std::vector<Layout> layouts;
        std::optional<std::string> activeLayout;
        // The other configIDs under which it was known.
        std::vector<std::string> formerIDs;

        bool operator==(const DeskRecords&) const = default;
    };
    [[nodiscard]] DeskRecords deskRecords(const std::string& configID);
    bool forgetDesk(const std::string& configID);
    // Replaces what the file has of the desk.
    bool putBackDesk(const std::string& configID, const DeskRecords& records);

    // Where the layouts of a desk have moved to, if they have.
    [[nodiscard]] std::optional<std::string> presentDesk(const std::string& configID);

    [[nodiscard]] std::vector<AppRule> rules();
    // Replaces the application's rule; the list stays sorted by appName, localized and ignoring case.
    bool setRule(const AppRule& rule);
    bool removeRule(const std::string& bundleID);

private:
    explicit LayoutStore(JsonStore<StoreFile> file);

    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const LayoutStore::StoreFile& file);
void from_json(const nlohmann::json& json, LayoutStore::StoreFile& file);

} // namespace vantrel

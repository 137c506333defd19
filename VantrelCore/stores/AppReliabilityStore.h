// "app-reliability.json": the restore outcomes of every application.
#pragma once

#include "VantrelCore/model/AppReliability.h"
#include "VantrelCore/stores/JsonStore.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vantrel {

class AppReliabilityStore {
public:
    static constexpr std::int64_t schemaVersion = 1;

    // More applications than anyone uses. Applications that identify themselves differently at every start
    // must not fill the file; those unseen longest are dropped first.
    static constexpr std::size_t maxApps = 500;

    struct StoreFile {
        std::int64_t version = schemaVersion;
        // One per application.
        std::vector<AppReliability> apps;

        bool operator==(const StoreFile&) const = default;
    };

    // Creates the directory if missing; reads nothing yet.
    [[nodiscard]] static std::expected<AppReliabilityStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files);

    explicit AppReliabilityStore(JsonStore<StoreFile> file);

    // Worst first: by failure rate (none counts as 0), then failures, then name, localized and ignoring case.
    // Reads the file unless its content is in the cache; see JsonStore.
    void read() { m_file.read(); }

    [[nodiscard]] std::vector<AppReliability> all();
    [[nodiscard]] std::optional<AppReliability> record(const std::string& bundleID);
    [[nodiscard]] std::set<std::string> stubbornBundleIDs();

    // Counts the items and writes once, or not at all without items. False when the write failed; nothing is
    // counted then.
    bool record(const std::vector<RestoreLog::Item>& items, Date at, const Saving& saving = {});
    // Removes all applications.
    bool clear();

private:
    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const AppReliabilityStore::StoreFile& file);
void from_json(const nlohmann::json& json, AppReliabilityStore::StoreFile& file);

} // namespace vantrel

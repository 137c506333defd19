// "app-size-behavior.json": how every application responds to resize requests.
#pragma once

#include "VantrelCore/model/AppSizeBehavior.h"
#include "VantrelCore/stores/JsonStore.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class AppSizeBehaviorStore {
public:
    static constexpr std::int64_t schemaVersion = 1;

    struct StoreFile {
        std::int64_t version = schemaVersion;
        // One per application, in the order they were first seen.
        std::vector<AppSizeBehavior> behaviors;

        bool operator==(const StoreFile&) const = default;
    };

    // The size requested of one of the application's windows, and the size it took.
    struct Observation {
        std::string bundleID;
        Size requested;
        Size achieved;

        bool operator==(const Observation&) const = default;
    };

    // Creates the directory if missing; reads nothing yet.
    [[nodiscard]] static std::expected<AppSizeBehaviorStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files);

    explicit AppSizeBehaviorStore(JsonStore<StoreFile> file);

    // What is assumed of an application before anything is learned.
    [[nodiscard]] static AppSizeBehavior::Classification seed(const std::string& bundleID);

    // Reads the file unless its content is in the cache; see JsonStore.
    void read() { m_file.read(); }

    [[nodiscard]] std::optional<AppSizeBehavior> behavior(const std::string& bundleID);
    // What was learned, else the seed.
    [[nodiscard]] AppSizeBehavior::Classification classification(const std::string& bundleID);

    // Learns from the observations and writes once. False when the write failed; nothing is learned then.
    // Observations with a non-finite size come from broken windows and are ignored; without any others
    // nothing is written.
    bool record(const Observation& observation);
    bool record(const std::vector<Observation>& observations, const Saving& saving = {});

private:
    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const AppSizeBehaviorStore::StoreFile& file);
void from_json(const nlohmann::json& json, AppSizeBehaviorStore::StoreFile& file);

} // namespace vantrel

// "app-size-behavior.json": what every application does when its windows are asked to take a size.
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
        // One per application, in the order in which they were first seen.
        std::vector<AppSizeBehavior> behaviors;

        bool operator==(const StoreFile&) const = default;
    };

    // A window of the application was asked to take one size and took another, or the same.
    struct Observation {
        std::string bundleID;
        Size requested;
        Size achieved;

        bool operator==(const Observation&) const = default;
    };

    // Creates the directory when missing. Nothing is read yet.
    [[nodiscard]] static std::expected<AppSizeBehaviorStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files);

    explicit AppSizeBehaviorStore(JsonStore<StoreFile> file);

    // What is known of an application before anything was learned of it.
    [[nodiscard]] static AppSizeBehavior::Classification seed(const std::string& bundleID);

    [[nodiscard]] std::optional<AppSizeBehavior> behavior(const std::string& bundleID);
    // What was learned, or the seed where nothing was.
    [[nodiscard]] AppSizeBehavior::Classification classification(const std::string& bundleID);

    // Learn and write once; false when the write failed and nothing was learned. Observations with a size
    // that is not a finite number are reports of a broken window and teach nothing; without any others
    // nothing is written.
    bool record(const Observation& observation);
    bool record(const std::vector<Observation>& observations);

private:
    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const AppSizeBehaviorStore::StoreFile& file);
void from_json(const nlohmann::json& json, AppSizeBehaviorStore::StoreFile& file);

} // namespace vantrel

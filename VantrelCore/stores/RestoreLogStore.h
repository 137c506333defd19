// "restore-log.json": the restore history of recent days.
#pragma once

#include "VantrelCore/model/RestoreLog.h"
#include "VantrelCore/stores/JsonStore.h"

namespace vantrel {

class RestoreLogStore {
public:
    static constexpr std::int64_t schemaVersion = 1;

    struct StoreFile {
        std::int64_t version = schemaVersion;
        RestoreLog log;

        bool operator==(const StoreFile&) const = default;
    };

    // Creates the directory if missing; reads nothing yet.
    [[nodiscard]] static std::expected<RestoreLogStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files);

    explicit RestoreLogStore(JsonStore<StoreFile> file);

    [[nodiscard]] RestoreLog load();

    // Reads the file unless its content is in the cache; see JsonStore.
    void read() { m_file.read(); }

    // The bool results report whether the file was written; false means that nothing changed. See Saving for
    // the exception.

    // Puts the entry in front and prunes, as of its date, entries that are too old or too many.
    bool record(const RestoreLog::Entry& entry, const Saving& saving = {});
    // Replaces the newest entry; false without one.
    bool replaceNewest(const RestoreLog::Entry& entry, const Saving& saving = {});
    bool clear();

private:
    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const RestoreLogStore::StoreFile& file);
void from_json(const nlohmann::json& json, RestoreLogStore::StoreFile& file);

} // namespace vantrel

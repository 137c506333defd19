// "stashes.json": the stashed desks, at most ten, kept for a week.
#pragma once

#include "VantrelCore/model/Stash.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/stores/JsonStore.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class StashStore {
public:
    static constexpr std::int64_t schemaVersion = 1;
    static constexpr std::size_t maxStashes = 10;
    static constexpr int retentionDays = 7;

    struct StoreFile {
        std::int64_t version = schemaVersion;
        std::vector<Stash> stashes;

        bool operator==(const StoreFile&) const = default;
    };

    // Creates the directory if missing; reads nothing yet. Stashes that have expired when the file is read
    // are left out, and disappear from the file with the next write. If most have expired, a copy of the file
    // is kept.
    [[nodiscard]] static std::expected<StashStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files, Clock& clock);

    [[nodiscard]] static bool hasExpired(const Stash& stash, Date now);

    explicit StashStore(JsonStore<StoreFile> file);

    // Reads the file unless its content is in the cache; see JsonStore.
    void read() { m_file.read(); }

    // Newest first.
    [[nodiscard]] std::vector<Stash> allStashes();
    [[nodiscard]] std::optional<Stash> stash(const std::string& id);
    [[nodiscard]] std::optional<Stash> newest();
    [[nodiscard]] std::optional<Stash> newestFor(const std::string& configID);

    // Drops the oldest stashes beyond the tenth. Returns the stash even if the write failed.
    Stash add(const Stash& stash, const Saving& saving = {});
    // False when the write failed; see Saving for the exception.
    bool remove(const std::string& id, const Saving& saving = {});

    bool removeAllOf(const std::string& configID);
    // Those that are still kept are left as they are. The oldest beyond the tenth are dropped.
    bool putBackAll(const std::vector<Stash>& stashes);

    // The desk `from` is now known as `to`, with these displays in the same places; see LayoutStore.
    bool moveDesk(const std::string& from, const std::string& to, const std::vector<DisplayInfo>& displays,
                  const Saving& saving = {});

private:
    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const StashStore::StoreFile& file);
void from_json(const nlohmann::json& json, StashStore::StoreFile& file);

} // namespace vantrel

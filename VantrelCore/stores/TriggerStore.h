// "triggers.json": the triggers that apply scenes automatically, at most twenty.
#pragma once

#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/stores/JsonStore.h"
#include "VantrelCore/stores/TriggerStoreError.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class TriggerStore {
public:
    static constexpr std::int64_t schemaVersion = 1;
    static constexpr std::size_t maxTriggers = 20;

    struct StoreFile {
        std::int64_t version = schemaVersion;
        std::vector<SceneTrigger> triggers;

        bool operator==(const StoreFile&) const = default;
    };

    template <typename T>
    using Result = std::expected<T, TriggerStoreError>;

    // Creates the directory if missing; reads nothing yet.
    [[nodiscard]] static std::expected<TriggerStore, std::error_code>
    open(const std::filesystem::path& directory, const StoreFiles& files);

    explicit TriggerStore(JsonStore<StoreFile> file);

    // Reads the file unless its content is in the cache; see JsonStore.
    void read() { m_file.read(); }

    // Oldest first.
    [[nodiscard]] std::vector<SceneTrigger> allTriggers();
    [[nodiscard]] std::optional<SceneTrigger> trigger(const std::string& id);

    // On error, file and store are unchanged. See Saving for the exception.

    [[nodiscard]] Result<SceneTrigger> add(const SceneTrigger& trigger);
    // All of them or none. `at` is the index of the first; after all others unless stated.
    [[nodiscard]] Result<void> addAll(const std::vector<SceneTrigger>& triggers,
                                      std::optional<std::size_t> at = {});
    [[nodiscard]] Result<void> setEnabled(const std::string& id, bool enabled);
    // Replaces the trigger with the same id.
    [[nodiscard]] Result<void> update(const SceneTrigger& trigger);
    [[nodiscard]] Result<void> recordFired(const std::string& id, Date at, const Saving& saving = {});
    // An unknown id changes nothing.
    void deleteTrigger(const std::string& id);

private:
    template <typename Change>
    Result<void> changeTrigger(const std::string& id, Change&& change, const Saving& saving = {});

    JsonStore<StoreFile> m_file;
};

void to_json(nlohmann::json& json, const TriggerStore::StoreFile& file);
void from_json(const nlohmann::json& json, TriggerStore::StoreFile& file);

} // namespace vantrel

// The pattern common to all stores: one JSON file, read on first use and then cached, written as a whole,
// atomically and durably. A file that cannot be read or decoded is moved aside under its name with ".corrupt"
// appended (SetAside), and the store starts empty.
#pragma once

#include "VantrelCore/model/AgeLoss.h"
#include "VantrelCore/stores/JsonFile.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>

namespace vantrel {

// `Record` is the file's content: a struct with to_json and from_json whose default value is an empty store.
// If it has `std::int64_t version`, defaulting to the current schema version, every write stamps that version
// and its from_json requires "version". Not locked: all calls come from the main thread.
template <typename Record>
class JsonStore {
public:
    // Drops expired data from a record right after reading.
    using AfterReading = std::function<AgeLoss(Record&)>;

    // Creates the directory if missing; reads nothing yet.
    [[nodiscard]] static std::expected<JsonStore, std::error_code>
    open(const std::filesystem::path& directory, std::string_view fileName, const StoreFiles& files,
         AfterReading afterReading = {}) {
        if (const std::error_code error = files.files().createDirectories(directory)) {
            return std::unexpected(error);
        }
        return JsonStore(JsonFile(directory / fileName, schemaVersion(), files), std::move(afterReading));
    }

    // The same for a class that owns a JsonStore and is constructed from it.
    template <typename Store>
    [[nodiscard]] static std::expected<Store, std::error_code>
    openAs(const std::filesystem::path& directory, std::string_view fileName, const StoreFiles& files,
           AfterReading afterReading = {}) {
        auto store = open(directory, fileName, files, std::move(afterReading));
        if (!store) {
            return std::unexpected(store.error());
        }
        return Store(std::move(*store));
    }

    [[nodiscard]] const std::filesystem::path& fileURL() const { return m_file.path(); }

    // The content, from the cache or else from disk. The reference is valid until the next member call.
    [[nodiscard]] const Record& load() {
        if (m_file.wasReplaced()) {
            m_cache.reset();
        }
        if (!m_cache) {
            Record record;
            if (m_file.read([&](const nlohmann::json& document) { from_json(document, record); },
                            [&](nlohmann::json& document) { to_json(document, record); })) {
                if (m_afterReading) {
                    note(m_afterReading(record));
                }
                m_cache = std::move(record);
            }
        }
        static const Record empty{};
        return m_cache ? *m_cache : empty;
    }

    // Replaces the whole file, stamped with the current schema version. False on failure; file and cache are
    // then unchanged.
    [[nodiscard]] bool write(Record record) {
        if constexpr (isVersioned) {
            record.version = Record{}.version;
        }
        if (!m_file.write([&](nlohmann::json& document) { to_json(document, record); })) {
            return false;
        }
        m_cache = std::move(record);
        return true;
    }

    // Loads the record, applies `change` to a copy, and writes the copy. A change that drops expired data
    // returns how much: if it was most of the data, a copy of the file is kept before writing.
    template <typename Change>
    [[nodiscard]] bool update(Change&& change) {
        Record record = load();
        if constexpr (std::is_same_v<std::invoke_result_t<Change, Record&>, AgeLoss>) {
            note(std::forward<Change>(change)(record));
        } else {
            std::forward<Change>(change)(record);
        }
        return write(std::move(record));
    }

private:
    void note(const AgeLoss& loss) {
        if (loss.isMost()) {
            m_file.keepExpired();
        }
    }

    static constexpr bool isVersioned = requires(Record record) { record.version; };

    [[nodiscard]] static std::optional<std::int64_t> schemaVersion() {
        if constexpr (isVersioned) {
            return Record{}.version;
        } else {
            return std::nullopt;
        }
    }

    JsonStore(JsonFile file, AfterReading afterReading)
        : m_file(std::move(file)), m_afterReading(std::move(afterReading)) {}

    JsonFile m_file;
    AfterReading m_afterReading;
    // What was last read or written.
    std::optional<Record> m_cache;
};

} // namespace vantrel

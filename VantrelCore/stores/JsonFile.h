// A store's JSON file, independent of the record type: sets unusable files aside when reading and preserves
// unknown data when writing. JsonStore adds the record type and the cache.
#pragma once

#include "VantrelCore/stores/StoreFiles.h"
#include "VantrelCore/stores/UnknownKeys.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

// Not locked: all calls come from the main thread.
class JsonFile {
public:
    // Throws if the document does not fit the record.
    using Decode = std::function<void(const nlohmann::json& document)>;
    // Fills the document with every key that the record knows.
    using Encode = std::function<void(nlohmann::json& document)>;

    // Without a schema version the file is read and written without "version".
    JsonFile(std::filesystem::path path, std::optional<std::int64_t> schemaVersion, const StoreFiles& files);

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    // True when the file was read and `decode` accepted it; `encode` then shows which keys the record knows.
    // False when there is no file, or when it could not be read or decoded and was moved to ".corrupt" beside
    // it. A file moved aside because it was unreadable is put back once it can be read, unless something has
    // been written since.
    [[nodiscard]] bool read(const Decode& decode, const Encode& encode);

    // Whether the file was replaced since the last read; see FileIncidents::noteReplaced.
    [[nodiscard]] bool wasReplaced() const;

    // Why a file with this content cannot be used; empty when it can.
    [[nodiscard]] static std::string problemWith(const std::string& content, const Decode& decode);

    // Writes the encoded document, with the schema version and the unknown keys from an earlier read. False
    // on any failure; the file is then unchanged. Also fails rather than destroy an unusable file that cannot
    // be moved aside, or a file whose copy could not be kept.
    [[nodiscard]] bool write(const Encode& encode);

    // The next write first copies the file to ".expired" beside it, replacing an older copy.
    void keepExpired() { m_keepsExpired = true; }

private:
    using Kind = FileIncident::Kind;

    // Decodes the content. Returns why it cannot be used, or "" on success.
    [[nodiscard]] std::string take(const std::string& content, const Decode& decode, const Encode& encode);
    [[nodiscard]] std::size_t replacements() const;
    [[nodiscard]] bool readSetAside(const Decode& decode, const Encode& encode);
    [[nodiscard]] bool refuse(const std::string& reason);
    void moveAside();
    [[nodiscard]] std::string makeOriginalSafe();
    [[nodiscard]] std::string keepCopy(std::string_view suffix, Kind kind);
    void report(Kind kind, std::string reason = {}, std::filesystem::path copy = {});

    std::filesystem::path m_path;
    std::optional<std::int64_t> m_schemaVersion;
    StoreFiles m_files;
    // Keys in the file that this version does not know.
    UnknownKeys m_unknownKeys;
    // Why the file was last moved aside, or is about to be.
    Kind m_trouble = Kind::undecodable;
    std::string m_reason;
    // The file at m_path is unusable and could not be moved aside.
    bool m_isStuck = false;
    // The file set aside may still turn out usable and be put back.
    bool m_mayComeBack = true;
    // The file at m_path was written by a newer version.
    bool m_isNewer = false;
    std::size_t m_replacementsSeen = 0;
    bool m_keepsExpired = false;
};

} // namespace vantrel

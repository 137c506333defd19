// A store's JSON file, independent of the record type: sets unusable files aside when reading and preserves
// unknown data when writing. JsonStore adds the record type and the cache.
#pragma once

#include "VantrelCore/ports/FileSystem.h"
#include "VantrelCore/stores/FileIncidents.h"
#include "VantrelCore/stores/UnknownKeys.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel {

// Not locked: one thread uses it at a time, unless a function says otherwise. JsonStore sees to that.
class JsonFile {
public:
    // Throws if the document does not fit the record.
    using Decode = std::function<void(const nlohmann::json& document)>;
    // Fills the document with every key that the record knows.
    using Encode = std::function<void(nlohmann::json& document)>;
    // What happened to the file, for the main thread to report.
    using News = std::vector<std::function<void(FileIncidents&)>>;

    // Without a schema version the file is read and written without "version".
    JsonFile(std::filesystem::path path, std::optional<std::int64_t> schemaVersion, FileSystem& files);

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    // True when the file was read and `decode` accepted it; `encode` then shows which keys the record knows.
    // False when there is no file, or when it could not be read or decoded and was moved to ".corrupt" beside
    // it. A file moved aside because it was unreadable is put back once it can be read, unless something has
    // been written since.
    [[nodiscard]] bool read(const Decode& decode, const Encode& encode);

    // Why a file with this content cannot be used; empty when it can.
    [[nodiscard]] static std::string problemWith(const std::string& content, const Decode& decode);

    // Writes the encoded document, with the schema version and the unknown keys from an earlier read. False
    // on any failure; the file is then unchanged. Also fails rather than destroy an unusable file that cannot
    // be moved aside, or a file whose copy could not be kept.
    [[nodiscard]] bool write(const Encode& encode);

    // The next write first copies the file to ".expired" beside it, replacing an older copy. May be called
    // from any thread.
    void keepExpired() { m_keepsExpired = true; }

    // The news since the last call.
    [[nodiscard]] News takeNews() { return std::exchange(m_news, {}); }

private:
    using Kind = FileIncident::Kind;

    // Decodes the content. Returns why it cannot be used, or "" on success.
    [[nodiscard]] std::string take(const std::string& content, const Decode& decode, const Encode& encode);
    [[nodiscard]] bool readSetAside(const Decode& decode, const Encode& encode);
    [[nodiscard]] bool refuse(const std::string& reason);
    void moveAside();
    [[nodiscard]] std::string makeOriginalSafe();
    [[nodiscard]] std::string keepCopy(std::string_view suffix, Kind kind);
    void report(Kind kind, std::string reason = {}, std::filesystem::path copy = {});

    std::filesystem::path m_path;
    std::optional<std::int64_t> m_schemaVersion;
    FileSystem& m_files;
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
    std::atomic<bool> m_keepsExpired = false;
    News m_news;
};

} // namespace vantrel

// One JSON file as stores keep it, whatever its records: reading with quarantine, writing with what must not
// be lost. JsonStore adds the record type and the cache.
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
    // Throws when the document is not what the record needs.
    using Decode = std::function<void(const nlohmann::json& document)>;
    // Fills the document with every key that the record knows.
    using Encode = std::function<void(nlohmann::json& document)>;

    // Without a schema version the file is read and written without "version".
    JsonFile(std::filesystem::path path, std::optional<std::int64_t> schemaVersion, const StoreFiles& files);

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    // True when the file was read and `decode` took it; `encode` then says which keys the record knows.
    // False when there is no file, or it cannot be read or decoded and was moved to ".corrupt" beside it.
    // A copy that was moved there because it could not be read is put back as soon as it can be, unless
    // something has been written since.
    [[nodiscard]] bool read(const Decode& decode, const Encode& encode);

    // The file is another one since the last read, see FileIncidents::noteReplaced.
    [[nodiscard]] bool wasReplaced() const;

    // Why a file with this content cannot be used; empty when it can.
    [[nodiscard]] static std::string objection(const std::string& content, const Decode& decode);

    // Writes the encoded document, with the schema version and the keys that an earlier read did not know.
    // False when anything failed; then the file is as it was. It fails also when the write would destroy what
    // could not be read and cannot be moved aside either, or something of which a copy is to be kept and
    // cannot be.
    [[nodiscard]] bool write(const Encode& encode);

    // Before the next write the file as it is then is copied to ".expired" beside it, replacing an older
    // copy.
    void keepExpired() { m_keepsExpired = true; }

private:
    using Kind = FileIncident::Kind;

    // Why the content cannot be used; empty when it is taken over.
    [[nodiscard]] std::string take(const std::string& content, const Decode& decode, const Encode& encode);
    [[nodiscard]] std::size_t replacements() const;
    [[nodiscard]] bool readSetAside(const Decode& decode, const Encode& encode);
    [[nodiscard]] bool refuse(const std::string& reason);
    void moveAside();
    [[nodiscard]] std::string makeOriginalSafe();
    [[nodiscard]] std::string keepCopy(std::string_view suffix, Kind kind);
    void tell(Kind kind, std::string reason = {}, std::filesystem::path copy = {});

    std::filesystem::path m_path;
    std::optional<std::int64_t> m_schemaVersion;
    StoreFiles m_files;
    // What a newer program keeps in the file besides what we know.
    UnknownKeys m_unknownKeys;
    // Why the file was last moved aside, or is to be.
    Kind m_trouble = Kind::undecodable;
    std::string m_reason;
    // The file at m_path holds something unusable that could not be moved aside.
    bool m_isStuck = false;
    // What was set aside has not been found unusable since, so it may come back.
    bool m_mayComeBack = true;
    // The file at m_path was written by a newer program.
    bool m_isNewer = false;
    std::size_t m_replacementsSeen = 0;
    bool m_keepsExpired = false;
};

} // namespace vantrel

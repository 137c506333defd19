// One JSON file as stores keep it, whatever its records: reading with quarantine, writing with what must not
// be lost. JsonStore adds the record type and the cache.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>

namespace vantrel {

// Not locked: all calls come from the main thread.
class JsonFile {
public:
    // Throws when the document is not what the record needs.
    using Decode = std::function<void(const nlohmann::json& document)>;
    // Fills the document with every key that the record knows.
    using Encode = std::function<void(nlohmann::json& document)>;

    // Without a schema version the file is read and written without "version".
    JsonFile(std::filesystem::path path, std::optional<std::int64_t> schemaVersion, FileSystem& files);
    JsonFile(JsonFile&& other) noexcept;
    JsonFile& operator=(JsonFile&& other) noexcept;
    JsonFile(const JsonFile&) = delete;
    JsonFile& operator=(const JsonFile&) = delete;
    ~JsonFile();

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    // True when the file was read and `decode` took it; `encode` then says which keys the record knows.
    // False when there is no file, or it cannot be read or decoded and was moved to ".corrupt" beside it.
    [[nodiscard]] bool read(const Decode& decode, const Encode& encode);

    // Writes the encoded document, with the schema version and the keys that an earlier read did not know.
    // False when anything failed, also when the write would destroy what could not be read and cannot be
    // moved aside either, or a newer program's file of which no copy (".newer") can be kept.
    [[nodiscard]] bool write(const Encode& encode);

private:
    void moveAside();
    [[nodiscard]] bool originalIsSafe();

    std::filesystem::path m_path;
    std::optional<std::int64_t> m_schemaVersion;
    FileSystem* m_files;
    // What a newer program keeps in the file besides what we know; an object.
    std::unique_ptr<nlohmann::json> m_unknownKeys;
    // The file at m_path holds something undecodable that could not be moved aside.
    bool m_holdsUndecodable = false;
    // The file at m_path was written by a newer program.
    bool m_isNewer = false;
};

} // namespace vantrel

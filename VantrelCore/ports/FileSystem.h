// Port: the few file operations that stores and logs need, so that a full disk or a crash between two steps
// can be played in tests.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/ports/FileFault.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace vantrel {

// A file of a listed folder.
struct FileEntry {
    std::filesystem::path file{};
    Date modified{};

    bool operator==(const FileEntry&) const = default;
};

// May be used from any thread.
class FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    // No file of ours comes near this size; reading a larger one would take all memory.
    static constexpr std::uint64_t maxBytes = std::uint64_t{32} * 1024 * 1024;

    // The whole content; no_such_file_or_directory when there is no file, file_too_large above maxBytes.
    [[nodiscard]] virtual std::expected<std::string, std::error_code>
    read(const std::filesystem::path& file) = 0;

    // Replaces the file's content as a whole or not at all, also when the process or the machine stops
    // half-way: temporary file beside it, flushed to disk, renamed over it, folder flushed. Success means
    // that the content is durable. Every error means that the old content stays, except
    // FileFault::notFlushed; ask isReplaced().
    [[nodiscard]] virtual std::error_code writeAtomically(const std::filesystem::path& file,
                                                          std::string_view content) = 0;

    // Appends to the file, creating it when missing.
    [[nodiscard]] virtual std::error_code append(const std::filesystem::path& file,
                                                 std::string_view content) = 0;

    // Replaces `to` when it exists.
    [[nodiscard]] virtual std::error_code rename(const std::filesystem::path& from,
                                                 const std::filesystem::path& to) = 0;

    // No error when there is no such file.
    [[nodiscard]] virtual std::error_code remove(const std::filesystem::path& file) = 0;

    // With its parents; no error when it exists already.
    [[nodiscard]] virtual std::error_code createDirectories(const std::filesystem::path& directory) = 0;

    // The ordinary files directly inside the directory, hidden ones too, in any order; no folders, no links.
    [[nodiscard]] virtual std::expected<std::vector<FileEntry>, std::error_code>
    list(const std::filesystem::path& directory) = 0;

    // In bytes; none when there is no such file.
    [[nodiscard]] virtual std::optional<std::uint64_t> size(const std::filesystem::path& file) = 0;
};

} // namespace vantrel

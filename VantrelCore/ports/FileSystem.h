// Port: the few file operations that stores and logs need, so that tests can simulate a full disk or a crash
// between two steps.
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

// A file in a listed folder.
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

    // Far above the size of any file of ours; reading a huge file could exhaust memory.
    static constexpr std::uint64_t maxBytes = std::uint64_t{32} * 1024 * 1024;

    // The whole content, or no_such_file_or_directory, or file_too_large above maxBytes.
    [[nodiscard]] virtual std::expected<std::string, std::error_code>
    read(const std::filesystem::path& file) = 0;

    // Replaces the file's content atomically, even if the process or the machine stops half-way: writes a
    // temporary file beside it, flushes it to disk, renames it over the file and flushes the folder. Success
    // means that the content is durable. On any error but FileFault::notFlushed the old content stays; see
    // isReplaced().
    [[nodiscard]] virtual std::error_code writeAtomically(const std::filesystem::path& file,
                                                          std::string_view content) = 0;

    // Appends to the file; creates it if missing.
    [[nodiscard]] virtual std::error_code append(const std::filesystem::path& file,
                                                 std::string_view content) = 0;

    // Replaces `to` if it exists.
    [[nodiscard]] virtual std::error_code rename(const std::filesystem::path& from,
                                                 const std::filesystem::path& to) = 0;

    // A missing file is not an error.
    [[nodiscard]] virtual std::error_code remove(const std::filesystem::path& file) = 0;

    // Creates parents too; an existing directory is not an error.
    [[nodiscard]] virtual std::error_code createDirectories(const std::filesystem::path& directory) = 0;

    // Regular files directly in the directory, including hidden ones, in any order; no folders or links.
    [[nodiscard]] virtual std::expected<std::vector<FileEntry>, std::error_code>
    list(const std::filesystem::path& directory) = 0;

    // In bytes; none when there is no such file.
    [[nodiscard]] virtual std::optional<std::uint64_t> size(const std::filesystem::path& file) = 0;
};

} // namespace vantrel

// The file operations that stores and logs use, for POSIX systems.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <mutex>
#include <set>

namespace vantrel {

// Only the owner can access new files and folders, because they reveal what the user has open.
class PosixFileSystem final : public FileSystem {
public:
    [[nodiscard]] std::expected<std::string, std::error_code>
    read(const std::filesystem::path& file) override;

    // Keeps the permissions of the replaced file. Replaces the target of a symbolic link, not the link. The
    // first write to a file also removes temporary files that killed processes left behind.
    [[nodiscard]] std::error_code writeAtomically(const std::filesystem::path& file,
                                                  std::string_view content) override;

    [[nodiscard]] std::error_code append(const std::filesystem::path& file,
                                         std::string_view content) override;
    [[nodiscard]] std::error_code rename(const std::filesystem::path& from,
                                         const std::filesystem::path& to) override;
    [[nodiscard]] std::error_code remove(const std::filesystem::path& file) override;
    [[nodiscard]] std::error_code createDirectories(const std::filesystem::path& directory) override;
    [[nodiscard]] std::expected<std::vector<FileEntry>, std::error_code>
    list(const std::filesystem::path& directory) override;
    [[nodiscard]] std::optional<std::uint64_t> size(const std::filesystem::path& file) override;

private:
    [[nodiscard]] bool isFirstWriteTo(const std::filesystem::path& file);

    std::mutex m_mutex;
    std::set<std::filesystem::path> m_written;
};

} // namespace vantrel

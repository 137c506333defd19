// The file beside a target that holds its next content until the rename. Its owner keeps it locked, so that
// leftovers of killed processes can be told from files in use, in whatever process namespace.
#pragma once

#include "Vantrel/platform/posix/FileDescriptor.h"

#include <expected>
#include <filesystem>
#include <system_error>

namespace vantrel::posix {

class TemporaryFile {
public:
    // With a unique name, readable by its owner alone.
    [[nodiscard]] static std::expected<TemporaryFile, std::error_code>
    create(const std::filesystem::path& target);

    // Removes the temporary files of this target that nobody holds any more.
    static void removeLeftovers(const std::filesystem::path& target);

    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&&) = delete;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    // Removes the file unless it was renamed.
    ~TemporaryFile();

    [[nodiscard]] const FileDescriptor& descriptor() const { return m_descriptor; }
    [[nodiscard]] std::error_code renameTo(const std::filesystem::path& target);

private:
    TemporaryFile(FileDescriptor descriptor, std::string path);

    FileDescriptor m_descriptor;
    // Empty once renamed.
    std::string m_path;
};

} // namespace vantrel::posix

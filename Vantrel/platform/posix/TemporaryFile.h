// A file beside a target that holds its new content until the rename. Its owner keeps it locked, to tell
// leftovers of killed processes from files in use, even across process namespaces.
#pragma once

#include "Vantrel/platform/posix/FileDescriptor.h"

#include <expected>
#include <filesystem>
#include <system_error>

namespace vantrel::posix {

class TemporaryFile {
public:
    // Has a unique name and is readable only by its owner.
    [[nodiscard]] static std::expected<TemporaryFile, std::error_code>
    create(const std::filesystem::path& target);

    // Removes the target's temporary files that no process has locked.
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

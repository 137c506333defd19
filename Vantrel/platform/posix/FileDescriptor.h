// An owned file descriptor, with complete reads, writes and flushes.
#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>
#include <system_error>

namespace vantrel::posix {

// errno as an error code.
[[nodiscard]] std::error_code lastError();

class FileDescriptor {
public:
    FileDescriptor() = default;
    // Takes ownership of the descriptor; negative means none.
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    // Opens with O_CLOEXEC. `permissions` apply if the flags create the file.
    [[nodiscard]] static FileDescriptor open(const std::string& path, int flags, unsigned permissions = 0);

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }

    // Fails with file_too_large if there are more than `maxBytes`.
    [[nodiscard]] std::expected<std::string, std::error_code> readToEnd(std::uint64_t maxBytes) const;
    [[nodiscard]] std::error_code writeAll(std::string_view content) const;
    // Returns once the data is on disk.
    [[nodiscard]] std::error_code flush() const;

private:
    int m_descriptor = -1;
};

} // namespace vantrel::posix

// An open file descriptor that closes itself, and whole writes and flushes through it.
#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>
#include <system_error>

namespace vantrel::posix {

// What errno says.
[[nodiscard]] std::error_code lastError();

class FileDescriptor {
public:
    FileDescriptor() = default;
    // Takes the descriptor over; negative for none.
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    // Closed in child programs. `permissions` count when the flags create the file.
    [[nodiscard]] static FileDescriptor open(const std::string& path, int flags, unsigned permissions = 0);

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }

    // file_too_large when there are more than `maxBytes`.
    [[nodiscard]] std::expected<std::string, std::error_code> readToEnd(std::uint64_t maxBytes) const;
    [[nodiscard]] std::error_code writeAll(std::string_view content) const;
    // Returns when the disk holds what was written.
    [[nodiscard]] std::error_code flush() const;

private:
    int m_descriptor = -1;
};

} // namespace vantrel::posix

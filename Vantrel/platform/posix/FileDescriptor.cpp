#include "Vantrel/platform/posix/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vantrel::posix {

namespace {

// Retries a system call interrupted by a signal.
template <typename Call>
auto uninterrupted(Call&& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace

std::error_code lastError() {
    return {errno, std::system_category()};
}

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

FileDescriptor::~FileDescriptor() {
    if (isOpen()) {
        ::close(m_descriptor);
    }
}

FileDescriptor FileDescriptor::open(const std::string& path, int flags, unsigned permissions) {
    return FileDescriptor(
        uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, permissions); }));
}

std::expected<std::string, std::error_code> FileDescriptor::readToEnd(std::uint64_t maxBytes) const {
    const auto tooLarge = std::unexpected(std::make_error_code(std::errc::file_too_large));
    struct stat status{};
    if (::fstat(m_descriptor, &status) == 0 && status.st_size > 0 &&
        static_cast<std::uint64_t>(status.st_size) > maxBytes) {
        return tooLarge;
    }
    std::string content;
    std::array<char, 65536> buffer{};
    while (true) {
        const auto count = uninterrupted([&] { return ::read(m_descriptor, buffer.data(), buffer.size()); });
        if (count < 0) {
            return std::unexpected(lastError());
        }
        if (count == 0) {
            return content;
        }
        if (content.size() + static_cast<std::size_t>(count) > maxBytes) {
            return tooLarge;
        }
        content.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

std::error_code FileDescriptor::writeAll(std::string_view content) const {
    while (!content.empty()) {
        const auto count =
            uninterrupted([&] { return ::write(m_descriptor, content.data(), content.size()); });
        if (count < 0) {
            return lastError();
        }
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

std::error_code FileDescriptor::flush() const {
#ifdef F_FULLFSYNC
    // On macOS, fsync leaves the data in the drive's cache. Not every file system there supports F_FULLFSYNC.
    if (::fcntl(m_descriptor, F_FULLFSYNC) == 0) {
        return {};
    }
#endif
    return uninterrupted([&] { return ::fsync(m_descriptor); }) == 0 ? std::error_code() : lastError();
}

} // namespace vantrel::posix

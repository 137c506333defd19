#include "Vantrel/platform/posix/PosixFileSystem.h"

#include "Vantrel/platform/posix/FileDescriptor.h"
#include "Vantrel/platform/posix/TemporaryFile.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel {

namespace {

using posix::FileDescriptor;
using posix::lastError;
using posix::TemporaryFile;

constexpr unsigned ownerOnly = 0600;

std::filesystem::path folderOf(const std::filesystem::path& file) {
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

// The end of a chain of symbolic links, else the file itself.
std::filesystem::path linkTarget(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_symlink(file, error)) {
        return file;
    }
    auto target = std::filesystem::weakly_canonical(file, error);
    return error ? file : target;
}

std::error_code flushFolder(const FileDescriptor& folder) {
    const std::error_code error = folder.flush();
    // Some network and FUSE file systems cannot flush a folder.
    const bool isUnsupported = error == std::errc::invalid_argument || error == std::errc::not_supported;
    return isUnsupported ? std::error_code() : error;
}

} // namespace

std::expected<std::string, std::error_code> PosixFileSystem::read(const std::filesystem::path& file) {
    // O_NONBLOCK: if the path is a pipe, do not wait for its other end.
    const auto descriptor = FileDescriptor::open(file.string(), O_RDONLY | O_NONBLOCK);
    if (!descriptor.isOpen()) {
        return std::unexpected(lastError());
    }
    return descriptor.readToEnd(maxBytes);
}

std::error_code PosixFileSystem::writeAtomically(const std::filesystem::path& file,
                                                 std::string_view content) {
    const auto target = linkTarget(file);
    if (isFirstWriteTo(target)) {
        TemporaryFile::removeLeftovers(folderOf(target) / target.filename());
    }
    // Open the folder first, so that only disk errors can occur after the rename.
    const auto folder = FileDescriptor::open(folderOf(target).string(), O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen()) {
        return lastError();
    }
    auto temporary = TemporaryFile::create(folderOf(target) / target.filename());
    if (!temporary) {
        return temporary.error();
    }
    const auto& descriptor = temporary->descriptor();
    if (const auto error = descriptor.writeAll(content)) {
        return error;
    }
    struct stat old{};
    if (::stat(target.c_str(), &old) == 0 && ::fchmod(descriptor.get(), old.st_mode & 07777U) != 0) {
        return lastError();
    }
    if (const auto error = descriptor.flush()) {
        return error;
    }
    if (const auto error = temporary->renameTo(target)) {
        return error;
    }
    return flushFolder(folder) ? make_error_code(FileFault::notFlushed) : std::error_code();
}

std::error_code PosixFileSystem::append(const std::filesystem::path& file, std::string_view content) {
    const auto descriptor = FileDescriptor::open(file.string(), O_WRONLY | O_APPEND | O_CREAT, ownerOnly);
    return descriptor.isOpen() ? descriptor.writeAll(content) : lastError();
}

std::error_code PosixFileSystem::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    return ::rename(from.c_str(), to.c_str()) == 0 ? std::error_code() : lastError();
}

std::error_code PosixFileSystem::remove(const std::filesystem::path& file) {
    return ::unlink(file.c_str()) == 0 || errno == ENOENT ? std::error_code() : lastError();
}

std::error_code PosixFileSystem::createDirectories(const std::filesystem::path& directory) {
    std::error_code error;
    if (directory.empty() || std::filesystem::is_directory(directory, error)) {
        return {};
    }
    if (const auto parentError = createDirectories(directory.parent_path())) {
        return parentError;
    }
    if (::mkdir(directory.c_str(), 0700) == 0) {
        return {};
    }
    error = lastError();
    std::error_code ignored;
    return std::filesystem::is_directory(directory, ignored) ? std::error_code() : error;
}

std::expected<std::vector<FileEntry>, std::error_code>
PosixFileSystem::list(const std::filesystem::path& directory) {
    std::vector<FileEntry> files;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        // Skip files that vanish meanwhile.
        std::error_code gone;
        const auto status = entry->symlink_status(gone);
        const auto modified = entry->last_write_time(gone);
        if (!gone && std::filesystem::is_regular_file(status)) {
            files.push_back({entry->path(),
                             std::chrono::floor<Date::duration>(std::chrono::file_clock::to_sys(modified))});
        }
    }
    if (error) {
        return std::unexpected(error);
    }
    return files;
}

std::optional<std::uint64_t> PosixFileSystem::size(const std::filesystem::path& file) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(file, error);
    return error ? std::nullopt : std::optional<std::uint64_t>(bytes);
}

bool PosixFileSystem::isFirstWriteTo(const std::filesystem::path& file) {
    const std::scoped_lock lock(m_mutex);
    return m_written.insert(file).second;
}

} // namespace vantrel

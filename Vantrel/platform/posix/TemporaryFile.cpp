#include "Vantrel/platform/posix/TemporaryFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vantrel::posix {

namespace {

constexpr std::string_view uniquePart = "XXXXXX";

std::string namePrefix(const std::filesystem::path& target) {
    return "." + target.filename().string() + ".tmp-";
}

bool isStillLinked(const FileDescriptor& file) {
    struct stat status{};
    return ::fstat(file.get(), &status) == 0 && status.st_nlink > 0;
}

// True if we got the lock or the file system does not support locks.
bool lockOwn(const FileDescriptor& file) {
    return ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

} // namespace

std::expected<TemporaryFile, std::error_code> TemporaryFile::create(const std::filesystem::path& target) {
    // Another process may remove the file as a leftover before we lock it. Then create another one.
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string path = (target.parent_path() / namePrefix(target)).string().append(uniquePart);
        FileDescriptor descriptor(::mkostemp(path.data(), O_CLOEXEC));
        if (!descriptor.isOpen()) {
            return std::unexpected(lastError());
        }
        TemporaryFile file(std::move(descriptor), std::move(path));
        if (lockOwn(file.descriptor()) && isStillLinked(file.descriptor())) {
            return file;
        }
    }
    return std::unexpected(std::make_error_code(std::errc::resource_unavailable_try_again));
}

void TemporaryFile::removeLeftovers(const std::filesystem::path& target) {
    const std::string prefix = namePrefix(target);
    std::vector<std::filesystem::path> candidates;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(target.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(prefix) && name.size() == prefix.size() + uniquePart.size()) {
            candidates.push_back(entry->path());
        }
    }
    for (const auto& candidate : candidates) {
        const auto file = FileDescriptor::open(candidate.string(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
        if (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
            ::unlink(candidate.c_str());
        }
    }
}

TemporaryFile::TemporaryFile(FileDescriptor descriptor, std::string path)
    : m_descriptor(std::move(descriptor)), m_path(std::move(path)) {}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : m_descriptor(std::move(other.m_descriptor)), m_path(std::exchange(other.m_path, {})) {}

TemporaryFile::~TemporaryFile() {
    if (!m_path.empty()) {
        ::unlink(m_path.c_str());
    }
}

std::error_code TemporaryFile::renameTo(const std::filesystem::path& target) {
    if (::rename(m_path.c_str(), target.c_str()) != 0) {
        return lastError();
    }
    m_path.clear();
    return {};
}

} // namespace vantrel::posix

#include "tests/simulated/MemoryFileSystem.h"

#include <utility>

namespace vantrel::simulated {

namespace {

std::error_code failure(std::errc error) {
    return std::make_error_code(error);
}

} // namespace

std::expected<std::string, std::error_code> MemoryFileSystem::read(const std::filesystem::path& file) {
    if (const auto error = enter(Operation::read, file)) {
        return std::unexpected(error);
    }
    if (m_directories.contains(file)) {
        return std::unexpected(failure(std::errc::is_a_directory));
    }
    const auto found = m_files.find(file);
    if (found == m_files.end()) {
        return std::unexpected(failure(std::errc::no_such_file_or_directory));
    }
    if (const auto unreadable = m_unreadable.find(file); unreadable != m_unreadable.end()) {
        return std::unexpected(failure(unreadable->second));
    }
    return found->second;
}

std::error_code MemoryFileSystem::writeAtomically(const std::filesystem::path& file,
                                                  std::string_view content) {
    if (const auto error = enter(Operation::writeAtomically, file)) {
        return error;
    }
    if (const auto error = checkWritable(file)) {
        return error;
    }
    m_files[file] = content;
    return m_failing.contains(Operation::flushFolder) ? make_error_code(FileFault::notFlushed)
                                                      : std::error_code();
}

std::error_code MemoryFileSystem::append(const std::filesystem::path& file, std::string_view content) {
    if (const auto error = enter(Operation::append, file)) {
        return error;
    }
    if (const auto error = checkWritable(file)) {
        return error;
    }
    m_files[file] += content;
    return {};
}

std::error_code MemoryFileSystem::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (const auto error = enter(Operation::rename, from)) {
        return error;
    }
    if (!m_files.contains(from)) {
        return failure(std::errc::no_such_file_or_directory);
    }
    if (const auto error = checkWritable(to)) {
        return error;
    }
    auto moved = m_files.extract(from);
    m_files[to] = std::move(moved.mapped());
    return {};
}

std::error_code MemoryFileSystem::remove(const std::filesystem::path& file) {
    if (const auto error = enter(Operation::remove, file)) {
        return error;
    }
    if (m_directories.contains(file)) {
        return failure(std::errc::is_a_directory);
    }
    m_files.erase(file);
    return {};
}

std::error_code MemoryFileSystem::createDirectories(const std::filesystem::path& directory) {
    if (const auto error = enter(Operation::createDirectories, directory)) {
        return error;
    }
    for (auto path = directory; !path.empty() && path != path.root_path(); path = path.parent_path()) {
        if (m_files.contains(path)) {
            return failure(std::errc::not_a_directory);
        }
    }
    addDirectories(directory);
    return {};
}

std::expected<std::vector<FileEntry>, std::error_code>
MemoryFileSystem::list(const std::filesystem::path& directory) {
    if (const auto error = enter(Operation::list, directory)) {
        return std::unexpected(error);
    }
    if (!m_directories.contains(directory)) {
        return std::unexpected(failure(std::errc::no_such_file_or_directory));
    }
    std::vector<FileEntry> entries;
    for (const auto& [path, content] : m_files) {
        if (path.parent_path() == directory) {
            entries.push_back({path, m_modified[path]});
        }
    }
    return entries;
}

void MemoryFileSystem::put(const std::filesystem::path& file, std::string_view content, Date modified) {
    addDirectories(file.parent_path());
    m_files[file] = content;
    m_modified[file] = modified;
}

std::optional<std::string> MemoryFileSystem::content(const std::filesystem::path& file) const {
    const auto found = m_files.find(file);
    return found == m_files.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::filesystem::path> MemoryFileSystem::files() const {
    std::vector<std::filesystem::path> paths;
    for (const auto& [path, content] : m_files) {
        paths.push_back(path);
    }
    return paths;
}

std::size_t MemoryFileSystem::count(Operation operation) const {
    const auto found = m_counts.find(operation);
    return found == m_counts.end() ? 0 : found->second;
}

void MemoryFileSystem::failOnceAfter(std::size_t skipped, std::errc error) {
    m_skippedBeforeFailure = skipped;
    m_failOnceError = error;
}

void MemoryFileSystem::stopFailing() {
    m_skippedBeforeFailure.reset();
    m_failing.clear();
    m_unreadable.clear();
}

std::error_code MemoryFileSystem::enter(Operation operation, const std::filesystem::path& path) {
    ++m_counts[operation];
    if (onCall) {
        onCall(path);
    }
    if (m_skippedBeforeFailure) {
        if (*m_skippedBeforeFailure == 0) {
            m_skippedBeforeFailure.reset();
            return failure(m_failOnceError);
        }
        --*m_skippedBeforeFailure;
    }
    const auto found = m_failing.find(operation);
    return found == m_failing.end() ? std::error_code() : failure(found->second);
}

std::error_code MemoryFileSystem::checkWritable(const std::filesystem::path& file) const {
    if (!m_directories.contains(file.parent_path())) {
        return failure(std::errc::no_such_file_or_directory);
    }
    if (m_directories.contains(file)) {
        return failure(std::errc::is_a_directory);
    }
    return {};
}

void MemoryFileSystem::addDirectories(const std::filesystem::path& directory) {
    for (auto path = directory; !path.empty(); path = path.parent_path()) {
        m_directories.insert(path);
        if (path == path.parent_path()) {
            break;
        }
    }
}

} // namespace vantrel::simulated

// An in-memory file system that fails on command. For one thread at a time.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <vector>

namespace vantrel::simulated {

class MemoryFileSystem final : public FileSystem {
public:
    enum class Operation : std::uint8_t {
        read,
        writeAtomically,
        append,
        rename,
        remove,
        createDirectories,
        list,
        // Flushing the folder after the rename of an atomic write. Not counted.
        flushFolder
    };

    [[nodiscard]] std::expected<std::string, std::error_code>
    read(const std::filesystem::path& file) override;
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
    [[nodiscard]] std::optional<std::uint64_t> size(const std::filesystem::path& file) override {
        const auto text = content(file);
        return text ? std::optional<std::uint64_t>(text->size()) : std::nullopt;
    }

    // Access as by another program; never fails.
    void put(const std::filesystem::path& file, std::string_view content, Date modified = {});
    void putDirectory(const std::filesystem::path& directory) { addDirectories(directory); }
    [[nodiscard]] std::optional<std::string> content(const std::filesystem::path& file) const;
    [[nodiscard]] std::vector<std::filesystem::path> files() const;
    [[nodiscard]] bool isDirectory(const std::filesystem::path& path) const {
        return m_directories.contains(path);
    }

    // Called on the caller's thread when the program starts an operation that may have to wait for a disk.
    std::function<void(const std::filesystem::path&)> onCall;

    // How often an operation was called, including failures.
    [[nodiscard]] std::size_t count(Operation operation) const;

    // Fails one operation, after `skipped` more of any kind.
    void failOnceAfter(std::size_t skipped, std::errc error);
    // Fails every operation of this kind until `stopFailing`.
    void failAll(Operation operation, std::errc error) { m_failing[operation] = error; }
    // Fails reads of this file until `stopFailing`, although it exists.
    void failReading(const std::filesystem::path& file, std::errc error) { m_unreadable[file] = error; }
    void stopFailing();

private:
    [[nodiscard]] std::error_code enter(Operation operation, const std::filesystem::path& path);
    [[nodiscard]] std::error_code checkWritable(const std::filesystem::path& file) const;
    void addDirectories(const std::filesystem::path& directory);

    std::map<std::filesystem::path, std::string> m_files;
    std::set<std::filesystem::path> m_directories;
    // Only for files that were `put` with a date.
    std::map<std::filesystem::path, Date> m_modified;
    std::map<Operation, std::size_t> m_counts;
    std::optional<std::size_t> m_skippedBeforeFailure;
    std::errc m_failOnceError{};
    std::map<Operation, std::errc> m_failing;
    std::map<std::filesystem::path, std::errc> m_unreadable;
};

} // namespace vantrel::simulated

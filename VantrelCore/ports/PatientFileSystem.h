// Wraps a FileSystem and retries reads that fail for a transient reason.
#pragma once

#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/FileSystem.h"

#include <mutex>
#include <type_traits>

namespace vantrel {

// A brief disk error or a shortage of file descriptors must not make a healthy file look broken.
class PatientFileSystem final : public FileSystem {
public:
    // In seconds. All reads together wait no longer than `patience`, until no read has waited for `respite`,
    // so that a dead disk does not delay the start once per file.
    static constexpr double patience = 1;
    static constexpr double respite = 10;

    // Both must outlive this object.
    PatientFileSystem(FileSystem& files, Clock& clock) : m_files(files), m_clock(clock) {}

    [[nodiscard]] static bool isTransient(const std::error_code& error);

    [[nodiscard]] std::expected<std::string, std::error_code>
    read(const std::filesystem::path& file) override;
    [[nodiscard]] std::expected<std::vector<FileEntry>, std::error_code>
    list(const std::filesystem::path& directory) override;
    [[nodiscard]] std::error_code writeAtomically(const std::filesystem::path& file,
                                                  std::string_view content) override {
        return m_files.writeAtomically(file, content);
    }
    [[nodiscard]] std::error_code append(const std::filesystem::path& file,
                                         std::string_view content) override {
        return m_files.append(file, content);
    }
    [[nodiscard]] std::error_code rename(const std::filesystem::path& from,
                                         const std::filesystem::path& to) override {
        return m_files.rename(from, to);
    }
    [[nodiscard]] std::error_code remove(const std::filesystem::path& file) override {
        return m_files.remove(file);
    }
    [[nodiscard]] std::error_code createDirectories(const std::filesystem::path& directory) override {
        return m_files.createDirectories(directory);
    }
    [[nodiscard]] std::optional<std::uint64_t> size(const std::filesystem::path& file) override {
        return m_files.size(file);
    }

private:
    // Waits up to `seconds`; false when patience is used up.
    [[nodiscard]] bool wait(double seconds);

    template <typename Reading>
    [[nodiscard]] std::invoke_result_t<Reading> withRetries(Reading reading);

    FileSystem& m_files;
    Clock& m_clock;
    std::mutex m_mutex;
    double m_waited = 0;
    // On the monotonic clock.
    double m_lastWait = 0;
};

} // namespace vantrel

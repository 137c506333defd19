// The application log: "app.log" in the application-support folder, one line per message, with one older
// generation beside it.
#pragma once

#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/FileSystem.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace vantrel {

// Used on the main thread. A log that cannot be written is no reason to stop: failures are ignored.
class AppLog {
public:
    // A file larger than this, in bytes, becomes "app.log.1" before the next line is written.
    static constexpr std::uint64_t maxBytes = 1'000'000;

    // Creates the directory when missing.
    AppLog(const std::filesystem::path& directory, FileSystem& files, Clock& clock);

    // Appends "[time] message" as one safe line (SafeText): a window title can neither make lines nor steer
    // the terminal of whoever reads the log.
    void write(std::string_view message);

    [[nodiscard]] const std::filesystem::path& file() const { return m_file; }

private:
    std::filesystem::path m_file;
    FileSystem& m_files;
    Clock& m_clock;
};

} // namespace vantrel

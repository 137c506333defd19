// The application log: "app.log" in the application-support folder, one line per message. One older
// generation is kept.
#pragma once

#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/FileSystem.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace vantrel {

// Used on the main thread. An unwritable log must not stop the program, so failures are ignored.
class AppLog {
public:
    // A file larger than this, in bytes, becomes "app.log.1" before the next line is written.
    static constexpr std::uint64_t maxBytes = 1'000'000;

    // Creates the directory when missing.
    AppLog(const std::filesystem::path& directory, FileSystem& files, Clock& clock);

    // Appends "[time] message" as one safe line (SafeText): a window title can neither add lines nor inject
    // terminal escapes.
    void write(std::string_view message);

    [[nodiscard]] const std::filesystem::path& file() const { return m_file; }

private:
    std::filesystem::path m_file;
    FileSystem& m_files;
    Clock& m_clock;
};

} // namespace vantrel

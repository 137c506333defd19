// Reads the end of the application log and what is appended to it, across log rotation.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace vantrel {

class LogReader {
public:
    // `file` is the current log; the older one has ".1" appended to its name.
    explicit LogReader(std::filesystem::path file);

    // The last `count` lines, also from the older log if the current one has fewer. Empty without a log.
    // Lines appended later are returned by appended().
    [[nodiscard]] std::string lastLines(std::size_t count);

    // The text written since the last call.
    [[nodiscard]] std::string appended();

private:
    [[nodiscard]] std::filesystem::path olderGeneration() const;

    std::filesystem::path m_file;
    std::uint64_t m_read = 0;
};

} // namespace vantrel

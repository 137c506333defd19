// Reads the end of the application log, and what is appended to it, across its change of generation.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace vantrel {

class LogReader {
public:
    // `file` is the present generation; the older one stands beside it with ".1" appended.
    explicit LogReader(std::filesystem::path file);

    // The last `count` lines, from the older generation too where the present one has fewer. "" without a
    // log. What is appended later comes with appended().
    [[nodiscard]] std::string lastLines(std::size_t count);

    // What was written since the last call.
    [[nodiscard]] std::string appended();

private:
    [[nodiscard]] std::filesystem::path olderGeneration() const;

    std::filesystem::path m_file;
    std::uint64_t m_read = 0;
};

} // namespace vantrel

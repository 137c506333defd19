// A temporary home folder for everything that runs on a private desk, removed at the end.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vantrel::tools {

class TemporaryHome {
public:
    // Also removes homes left behind by killed processes.
    TemporaryHome();
    // Ends, by pid, every process that still has this home in its environment, then removes the folder.
    ~TemporaryHome();
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    // The log file for a program's output.
    [[nodiscard]] std::filesystem::path logFile(const std::string& program) const;
    // The last lines of that output, to explain a failure: the home no longer exists when somebody
    // investigates.
    [[nodiscard]] std::string logEnd(const std::string& program) const;

    // The XDG base folders are in the home.
    [[nodiscard]] std::filesystem::path configFolder() const { return m_path / "config"; }

    [[nodiscard]] std::filesystem::path dataFolder() const { return m_path / "data"; }

    [[nodiscard]] std::filesystem::path stateFolder() const { return m_path / "state"; }

    // A complete environment as "NAME=value": this home, no accessibility bus, settings kept in memory.
    [[nodiscard]] std::vector<std::string> environment() const;

    // Replaces vantrel's settings, one "key = value" per line. A new home has settings too: with these,
    // vantrel opens no window when it starts.
    void writeSettings(const std::string& more) const;

    // Writes a file in the home, creating folders.
    void write(const std::filesystem::path& relative, const std::string& content) const;

private:
    std::filesystem::path m_path;
};

} // namespace vantrel::tools

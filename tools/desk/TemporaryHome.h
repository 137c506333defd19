// A home folder of its own for everything a private desk runs, removed at the end.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vantrel::tools {

class TemporaryHome {
public:
    // Also removes what killed processes left behind.
    TemporaryHome();
    // Ends every process that still has this home in its environment, by pid, then removes the folder.
    ~TemporaryHome();
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    // Where the output of every program of the desk goes.
    [[nodiscard]] std::filesystem::path logFile(const std::string& program) const;
    // The last lines of that output, to say why a program failed: the home is gone when somebody looks.
    [[nodiscard]] std::string logEnd(const std::string& program) const;

    // The XDG base folders live in the home.
    [[nodiscard]] std::filesystem::path configFolder() const { return m_path / "config"; }

    [[nodiscard]] std::filesystem::path dataFolder() const { return m_path / "data"; }

    // A complete environment as "NAME=value": this home, no accessibility bus, settings kept in memory.
    [[nodiscard]] std::vector<std::string> environment() const;

    // Writes a file below the home with its folders.
    void write(const std::filesystem::path& relative, const std::string& content) const;

private:
    std::filesystem::path m_path;
};

} // namespace vantrel::tools

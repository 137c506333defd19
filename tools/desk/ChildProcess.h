// A program started for a private desk, in its own process group; ended no later than this object.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace vantrel::tools {

struct ChildStart {
    // The program's name or path and its arguments.
    std::vector<std::string> command;
    // "NAME=value", complete: nothing is inherited.
    std::vector<std::string> environment;
    std::filesystem::path workingDirectory;
    // Standard output and error are appended here.
    std::filesystem::path output;
    // Becomes the program's descriptor 3.
    std::optional<int> passedDescriptor;
};

// The kernel kills the program when the starting thread ends, so that a killed test leaves nothing behind:
// start programs on a thread that lives as long as the desk.
class ChildProcess {
public:
    // Throws std::runtime_error with a readable sentence if the program cannot be started.
    explicit ChildProcess(const ChildStart& start);
    ~ChildProcess();
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] pid_t pid() const { return m_pid; }

    // Reaps the program if it has ended.
    [[nodiscard]] bool isRunning();
    // The exit code, or 128 + signal if a signal ended it; waits for the end at most `seconds`.
    std::optional<int> waitForExit(double seconds);

    // Asks the whole group to end, and kills what is left after `graceSeconds`.
    void end(double graceSeconds = 2.0);

private:
    pid_t m_pid = -1;
    std::optional<int> m_exitCode;
};

} // namespace vantrel::tools

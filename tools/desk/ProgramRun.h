// A program running on a private desk, with its output in a separate file.
#pragma once

#include "tools/desk/ChildProcess.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::tools {

class PrivateDesk;

struct Ended {
    // None if it did not end in time.
    std::optional<int> code;
    // Standard output and error.
    std::string output;
};

class ProgramRun {
public:
    // `changes` modify the desk's environment: "NAME=value" sets a variable, "NAME" alone removes it.
    ProgramRun(const PrivateDesk& desk, const std::vector<std::string>& command,
               const std::vector<std::string>& changes = {});

    [[nodiscard]] ChildProcess& process() { return m_process; }

    [[nodiscard]] std::string output() const;

    // Waits for the end.
    [[nodiscard]] Ended ended();

    // Sends a signal and waits for the end.
    [[nodiscard]] Ended endedBy(int signal);

private:
    std::filesystem::path m_output;
    ChildProcess m_process;
};

} // namespace vantrel::tools

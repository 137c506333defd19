// A program that runs on a private desk, with what it prints in a file of its own.
#pragma once

#include "tools/desk/ChildProcess.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::tools {

class PrivateDesk;

struct Ended {
    // None when it did not end in time.
    std::optional<int> code;
    // Standard output and error.
    std::string output;
};

class ProgramRun {
public:
    // The desk's environment is changed by `changes`: "NAME=value" sets, "NAME" alone takes away.
    ProgramRun(const PrivateDesk& desk, const std::vector<std::string>& command,
               const std::vector<std::string>& changes = {});

    [[nodiscard]] ChildProcess& process() { return m_process; }

    [[nodiscard]] std::string output() const;

    // Waits for the end.
    [[nodiscard]] Ended ended();

    // Sends it a signal and waits for the end.
    [[nodiscard]] Ended endedBy(int signal);

private:
    std::filesystem::path m_output;
    ChildProcess m_process;
};

} // namespace vantrel::tools

// vantrel and vantrelctl as a user starts them on a private desk, with what they print.
#pragma once

#include "tests/live/desk/PrivateDesk.h"

#include <string>
#include <vector>

namespace vantrel::live {

struct Ended {
    // None when it did not end in time.
    std::optional<int> code;
    // Standard output and error.
    std::string output;
};

// A program with its output in a file of its own. `environment` is changed by `changes`: "NAME=value" sets,
// "NAME" alone takes away.
class ProgramRun {
public:
    ProgramRun(const PrivateDesk& desk, std::vector<std::string> command,
               const std::vector<std::string>& changes = {});
    // Shows vantrel's log when the test has failed: the desk's home goes with it.
    ~ProgramRun();
    ProgramRun(ProgramRun&&) = default;
    ProgramRun& operator=(ProgramRun&&) = delete;

    [[nodiscard]] ChildProcess& process() { return m_process; }

    [[nodiscard]] std::string output() const;

    // Waits for the end.
    [[nodiscard]] Ended ended();

private:
    std::filesystem::path m_output;
    // Empty for any other program.
    std::filesystem::path m_log;
    ChildProcess m_process;
};

[[nodiscard]] std::vector<std::string> vantrelCommand(const std::vector<std::string>& arguments = {});

// Runs vantrelctl to its end.
[[nodiscard]] Ended vantrelctl(const PrivateDesk& desk, const std::vector<std::string>& arguments);

// Starts vantrel and returns when it answers on the bus.
[[nodiscard]] ProgramRun startVantrel(const PrivateDesk& desk);

} // namespace vantrel::live

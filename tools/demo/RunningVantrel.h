// The program vantrel on the demo's desk, controlled through vantrelctl as by a user.
#pragma once

#include "tools/desk/PrivateDesk.h"

#include <filesystem>
#include <string>

namespace vantrel::tools {

class RunningVantrel {
public:
    struct Programs {
        std::filesystem::path vantrel;
        std::filesystem::path vantrelctl;
    };

    // Starts it and returns when it responds. Throws std::runtime_error with a readable sentence if it does
    // not.
    RunningVantrel(PrivateDesk& desk, Programs programs);

    // The desk's name from `vantrelctl status`.
    [[nodiscard]] const std::string& deskName() const { return m_deskName; }
    // The output of vantrelctl; throws if it fails.
    std::string save();

    // Waits for the next log line that contains `words`, after those already waited for. Empty if none came
    // in time.
    [[nodiscard]] std::string awaitLogged(const std::string& words, double seconds);
    [[nodiscard]] std::string log() const;

private:
    std::string control(const std::string& command);

    PrivateDesk& m_desk;
    Programs m_programs;
    std::filesystem::path m_logFile;
    std::string m_deskName;
    // How much of the log has been waited for already.
    std::size_t m_logSeen = 0;
};

} // namespace vantrel::tools

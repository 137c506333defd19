// The program vantrel on the demonstration's desk, told what to do through vantrelctl as a user would.
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

    // Starts it and returns when it answers. Throws std::runtime_error with a sentence when it does not.
    RunningVantrel(PrivateDesk& desk, Programs programs);

    // What `vantrelctl status` says of the desk: its name.
    [[nodiscard]] const std::string& deskName() const { return m_deskName; }
    // vantrelctl's own words; throws when it fails.
    std::string save();

    // Waits for the next line of the log that holds `words`, after those that were waited for before.
    // Empty when none came in time.
    [[nodiscard]] std::string awaitLogged(const std::string& words, double seconds);
    [[nodiscard]] std::string log() const;

private:
    std::string control(const std::string& command);

    PrivateDesk& m_desk;
    Programs m_programs;
    std::filesystem::path m_logFile;
    std::string m_deskName;
    // How much of the log was waited for already.
    std::size_t m_logSeen = 0;
};

} // namespace vantrel::tools

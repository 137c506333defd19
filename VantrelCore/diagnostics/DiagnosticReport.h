// The text that a user attaches to a bug report: the program, the system, the desk, the settings, the end of
// the log, crash reports. In English, for those who repair the program.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/DisplayInfo.h"

#include <string>
#include <vector>

namespace vantrel {

struct DiagnosticReport {
    Date date{};
    std::string version{};
    std::string operatingSystem{};
    // What the program is doing: "12 windows remembered".
    std::string phase{};
    std::vector<DisplayInfo> displays{};
    // The settings file, if there is one.
    std::string settings{};
    // What is wrong with files and settings.
    std::vector<std::string> problems{};
    std::vector<std::string> crashReports{};
    // All of it; only the end is used.
    std::string log{};

    // The user's home is written as "~".
    [[nodiscard]] std::string text(const std::string& home) const;
};

} // namespace vantrel

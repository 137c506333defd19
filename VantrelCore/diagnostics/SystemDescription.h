// Where a crash happened: describes the program and the machine, nothing about the user.
#pragma once

#include <string>

namespace vantrel {

struct SystemDescription {
    // The program's version, for example "1.4.0".
    std::string version;
    // Identifies the build, to find the debug information for the report's addresses.
    std::string build;
    // With its version, for example "Debian GNU/Linux 12 (bookworm), linux 6.1.0-18-amd64".
    std::string operatingSystem;
    // The model of the machine.
    std::string hardware;

    bool operator==(const SystemDescription&) const = default;
};

} // namespace vantrel

// The programs that the demonstration opens, with something in them, and where it puts their windows.
#pragma once

#include "tests/live/desk/PrivateDesk.h"

#include <string>
#include <vector>

namespace vantrel::live {

struct DemoWindow {
    // As the table names it.
    std::string name;
    std::string program;
    std::vector<std::string> command;
    Rect place;
};

// Writes the files that the programs show into the desk's home.
[[nodiscard]] std::vector<DemoWindow> demoWindows(const PrivateDesk& desk);

} // namespace vantrel::live

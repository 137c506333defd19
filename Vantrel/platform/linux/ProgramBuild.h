// Which build of the program is running.
#pragma once

#include <string>

namespace vantrel {

// The linker's build identity in hexadecimal, by which the debug information of exactly this program is
// found; "unknown" when it was linked without.
[[nodiscard]] std::string programBuild();

} // namespace vantrel

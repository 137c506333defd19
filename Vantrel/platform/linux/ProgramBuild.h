// Identifies the running build of the program.
#pragma once

#include <string>

namespace vantrel {

// The linker's build ID in hexadecimal, which identifies the matching debug information; "unknown" if the
// program was linked without one.
[[nodiscard]] std::string programBuild();

} // namespace vantrel

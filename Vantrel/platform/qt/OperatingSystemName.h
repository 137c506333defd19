// The operating system's name and version as one readable line.
#pragma once

#include <string>

namespace vantrel {

// For example "Debian GNU/Linux 12 (bookworm), linux 6.1.0-18-amd64".
[[nodiscard]] std::string operatingSystemName();

} // namespace vantrel

// What a crash report tells of this Mac and this build of the program.
#pragma once

#include <string>

namespace vantrel::SystemFacts {

// As Apple numbers its models: "Mac14,2"; "unknown" when the system does not say.
[[nodiscard]] std::string hardwareModel();

// The bundle's build number; "unknown" when the program runs outside a bundle.
[[nodiscard]] std::string programBuild();

} // namespace vantrel::SystemFacts

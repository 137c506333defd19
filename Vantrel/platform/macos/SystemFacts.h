// Information about this Mac and this build for crash reports.
#pragma once

#include <string>

namespace vantrel::SystemFacts {

// Apple's model identifier, for example "Mac14,2"; "unknown" if the system does not say.
[[nodiscard]] std::string hardwareModel();

// The bundle's build number; "unknown" outside a bundle.
[[nodiscard]] std::string programBuild();

} // namespace vantrel::SystemFacts

// The icons of installed applications, as PNG data.
#pragma once

#include <string>
#include <vector>

namespace vantrel::ApplicationPictures {

// In several sizes; empty when the application is not installed. Called on the main thread.
[[nodiscard]] std::vector<std::string> read(const std::string& bundleID);

} // namespace vantrel::ApplicationPictures

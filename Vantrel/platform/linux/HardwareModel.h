// The machine's model as its firmware gives it.
#pragma once

#include <filesystem>
#include <string>

namespace vantrel {

// For example "ThinkPad X1 Carbon Gen 9"; "unknown" where there is none. `root` is the root of the file
// system.
[[nodiscard]] std::string hardwareModel(const std::filesystem::path& root = "/");

} // namespace vantrel

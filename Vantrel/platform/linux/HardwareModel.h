// The machine's model as reported by its firmware.
#pragma once

#include <filesystem>
#include <string>

namespace vantrel {

// For example "ThinkPad X1 Carbon Gen 9", or "unknown" if the firmware gives none. `root` is the file system
// root.
[[nodiscard]] std::string hardwareModel(const std::filesystem::path& root = "/");

} // namespace vantrel

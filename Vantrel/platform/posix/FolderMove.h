// Moves what older versions kept in another folder to where it belongs now. What could not be moved, or was
// not because the program was interrupted, is tried again at the next start.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vantrel::FolderMove {

// Moves every file below `from` to the same place below `to` and removes `from` once it is empty. A file that
// `to` has as well stays where it is. The caller holds the locks of both folders (InstanceLock), which exist.
// Returns lines for the log.
[[nodiscard]] std::vector<std::string> everything(const std::filesystem::path& from,
                                                  const std::filesystem::path& to);

// The same for the named files directly in `from` and what is derived from them ("app.log", "app.log.1");
// `from` stays.
[[nodiscard]] std::vector<std::string> files(const std::filesystem::path& from,
                                             const std::filesystem::path& to,
                                             const std::vector<std::string>& names);

} // namespace vantrel::FolderMove

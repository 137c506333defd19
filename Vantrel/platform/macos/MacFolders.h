// The folders that the program uses for this user.
#pragma once

#include <filesystem>
#include <optional>

namespace vantrel::MacFolders {

// "Vantrel" in the user's Application Support folder; none if the system reports no such folder.
[[nodiscard]] std::optional<std::filesystem::path> supportDirectory();

} // namespace vantrel::MacFolders

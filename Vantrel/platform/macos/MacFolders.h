// Where a Mac program keeps its files for this user.
#pragma once

#include <filesystem>
#include <optional>

namespace vantrel::MacFolders {

// "Vantrel" in the user's Application Support folder; none when the system gives no such folder.
[[nodiscard]] std::optional<std::filesystem::path> supportDirectory();

} // namespace vantrel::MacFolders

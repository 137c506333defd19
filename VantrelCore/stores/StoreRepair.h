// Brings a copy of a store's file back at the user's request.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <expected>
#include <filesystem>
#include <string>

namespace vantrel::StoreRepair {

// `copyName` is that of a file in the folder ("layouts.json.corrupt"). What stood in the copy's place is kept
// with ".replaced" appended. Returns the store's file, or a sentence why nothing was changed.
[[nodiscard]] std::expected<std::filesystem::path, std::string>
putBack(FileSystem& files, const std::filesystem::path& directory, const std::string& copyName);

} // namespace vantrel::StoreRepair

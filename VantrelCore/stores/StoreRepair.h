// Restores a copy of a store's file at the user's request.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <expected>
#include <filesystem>
#include <string>
#include <vector>

namespace vantrel::StoreRepair {

// `copyName` names a file in one of the folders ("layouts.json.corrupt"). The store's current file is kept
// with
// ".replaced" appended. Returns the store's file, or a sentence with the reason why nothing was changed.
[[nodiscard]] std::expected<std::filesystem::path, std::string>
putBack(FileSystem& files, const std::vector<std::filesystem::path>& directories,
        const std::string& copyName);

} // namespace vantrel::StoreRepair

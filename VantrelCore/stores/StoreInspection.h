// Inspects the stores' files and the copies beside them without changing anything.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::StoreInspection {

struct Finding {
    std::filesystem::path file{};
    // The store file that this is a copy of; empty for a store file itself.
    std::filesystem::path original{};
    // Why it cannot be used; empty if it can.
    std::string problem{};
    Date modified{};

    bool operator==(const Finding&) const = default;

    [[nodiscard]] bool isCopy() const { return !original.empty(); }
};

// Whether `file` is a store's file, by name.
[[nodiscard]] bool isStore(const std::filesystem::path& file);

// Why the file at `place` cannot serve as the store's `file`; empty if it can.
[[nodiscard]] std::string problemWith(FileSystem& files, const std::filesystem::path& place,
                                      const std::filesystem::path& file);

// All store files in these folders and their copies, sorted by folder and name. Folders that cannot be
// listed, or appear twice, are skipped.
[[nodiscard]] std::vector<Finding> inspect(FileSystem& files, std::vector<std::filesystem::path> directories);

} // namespace vantrel::StoreInspection

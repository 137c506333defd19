// Looks at the stores' files and at the copies beside them without changing anything.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::StoreInspection {

struct Finding {
    std::filesystem::path file{};
    // The store's file of which this is a copy; empty for the store's file itself.
    std::filesystem::path original{};
    // Why it cannot be used; empty when it can.
    std::string problem{};
    Date modified{};

    bool operator==(const Finding&) const = default;

    [[nodiscard]] bool isCopy() const { return !original.empty(); }
};

// Whether `file`, by its name, belongs to a store.
[[nodiscard]] bool isStore(const std::filesystem::path& file);

// Why the file at `place` cannot serve as the store's `file`; empty when it can.
[[nodiscard]] std::string problemWith(FileSystem& files, const std::filesystem::path& place,
                                      const std::filesystem::path& file);

// Every store's file in the folder and every copy of one, by name. An error when the folder cannot be listed.
[[nodiscard]] std::expected<std::vector<Finding>, std::error_code>
inspect(FileSystem& files, const std::filesystem::path& directory);

} // namespace vantrel::StoreInspection

// When the program was first used here, according to its stores.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/ports/FileSystem.h"

#include <filesystem>
#include <optional>

namespace vantrel {

// None if the stores have no dates.
[[nodiscard]] std::optional<Date> earliestUse(const std::filesystem::path& supportDirectory,
                                              FileSystem& files);

} // namespace vantrel

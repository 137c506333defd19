// Since when the program has been used here, as far as its stores remember.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/ports/FileSystem.h"

#include <filesystem>
#include <optional>

namespace vantrel {

// None when nothing is remembered.
[[nodiscard]] std::optional<Date> earliestUse(const std::filesystem::path& supportDirectory,
                                              FileSystem& files);

} // namespace vantrel

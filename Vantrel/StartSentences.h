// Sentences about the program's start, shared by all systems.
#pragma once

#include "VantrelCore/text/Translation.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace vantrel {

[[nodiscard]] inline std::string folderIsUnusable(const std::filesystem::path& folder,
                                                  const std::error_code& error) {
    return trf("The folder {} cannot be used: {}.", folder.string(), error.message());
}

} // namespace vantrel

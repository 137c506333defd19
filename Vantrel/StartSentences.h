// Sentences about the program's start, shared by all systems.
#pragma once

#include <filesystem>
#include <fmt/format.h>
#include <string>
#include <system_error>

namespace vantrel {

[[nodiscard]] inline std::string folderIsUnusable(const std::filesystem::path& folder,
                                                  const std::error_code& error) {
    return fmt::format("The folder {} cannot be used: {}.", folder.string(), error.message());
}

} // namespace vantrel

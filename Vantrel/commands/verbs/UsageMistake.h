// What is wrong with a command line, as a sentence that names the mistake and, if there is one, what was
// probably meant.
#pragma once

#include <CLI/App.hpp>

#include <expected>
#include <string>
#include <vector>

namespace vantrel::UsageMistake {

// For an error that CLI11 found in the words after `app`, in a sentence with its full stop.
[[nodiscard]] std::string sentence(const CLI::App& app, const CLI::ParseError& error);

// The innermost command that was recognised: "vantrelctl scenes rename".
[[nodiscard]] std::string command(const CLI::App& app);

// The help of the command with this path below `app`, or a sentence that there is no such command.
[[nodiscard]] std::expected<std::string, std::string> help(const CLI::App& app,
                                                           const std::vector<std::string>& path);

} // namespace vantrel::UsageMistake

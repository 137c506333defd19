// A program's command line as a value: its verbs, what is said about them, and their options. What completion
// and manual page are made of.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vantrel {

struct OptionShape {
    // With their dashes, the short ones first; a positional argument has the one name it is shown by.
    std::vector<std::string> names;
    std::string description;
    // The name of its value, empty for a flag.
    std::string value;
    bool isPositional = false;

    bool operator==(const OptionShape&) const = default;
};

struct CommandShape {
    std::string name;
    std::string description;
    std::vector<OptionShape> options;
    std::vector<CommandShape> commands;

    bool operator==(const CommandShape&) const = default;

    [[nodiscard]] static CommandShape of(const CLI::App& app);
};

} // namespace vantrel

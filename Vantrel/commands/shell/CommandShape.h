// A program's command line as a value: verbs, descriptions and options. Completion scripts and the manual
// page are generated from it.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vantrel {

struct OptionShape {
    // With dashes, short names first. A positional argument has one name, the one displayed.
    std::vector<std::string> names;
    std::string description;
    // The name of its value; empty for a flag.
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

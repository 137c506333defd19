// A program's command line as a value: verbs, descriptions and options. Completion and the manual page are
// generated from it.
#pragma once

#include "Vantrel/commands/shell/ValueKind.h"

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace vantrel {

struct OptionShape {
    // With dashes, short names first. A positional argument has one name, the one displayed.
    std::vector<std::string> names{};
    std::string description{};
    // The name of its value; empty for a flag.
    std::string value{};
    ValueKind kind = ValueKind::text;
    bool isPositional = false;
    bool isRequired = false;
    // Takes any number of values.
    bool isRepeated = false;

    bool operator==(const OptionShape&) const = default;
};

struct CommandShape {
    std::string name{};
    std::string description{};
    std::vector<OptionShape> options{};
    std::vector<CommandShape> commands{};

    bool operator==(const CommandShape&) const = default;

    // Leaves out what help hides.
    [[nodiscard]] static CommandShape of(const CLI::App& app,
                                         const std::function<ValueKind(const CLI::Option&)>& kindOf);
};

} // namespace vantrel

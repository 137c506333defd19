// The verbs of vantrelctl on its command line.
#pragma once

#include "Vantrel/commands/Command.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace vantrel {

class VerbTable {
public:
    // Adds the commands' verbs to the parser, which outlives the table. A verb comes after those above it.
    VerbTable(CLI::App& app, std::vector<Command> commands);
    ~VerbTable();
    VerbTable(const VerbTable&) = delete;
    VerbTable& operator=(const VerbTable&) = delete;

    // Runs the innermost verb that was parsed.
    [[nodiscard]] ExitCode run(const VerbEnvironment& environment) const;

private:
    struct Added {
        const CLI::App* parsed;
        const Command* command;
        const Verb* verb;
    };

    void add(const Command& command, const Verb& verb);
    void addWord(CLI::App& parsed, const Word& word);
    [[nodiscard]] Typed typed(const Added& added) const;

    CLI::App& m_app;
    const std::vector<Command> m_commands;
    std::vector<Added> m_added;
    std::map<const CLI::Option*, const Word*> m_words;
    // Where the parser puts the values it reads.
    std::deque<std::string> m_values;
    std::deque<std::vector<std::string>> m_lists;
    std::deque<unsigned> m_numbers;
    bool m_asJson = false;
};

} // namespace vantrel

#include "Vantrel/commands/verbs/VerbTable.h"

#include "Vantrel/commands/verbs/TranslatedHelp.h"
#include "Vantrel/commands/verbs/UsageMistake.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "VantrelCore/text/Translation.h"

#include <CLI/CLI.hpp>

#include <utility>

namespace vantrel {

VerbTable::VerbTable(CLI::App& app, std::vector<Command> commands)
    : m_app(app), m_commands(std::move(commands)) {
    for (const Command& command : m_commands) {
        for (const Verb& verb : command.verbs) {
            add(command, verb);
        }
    }
}

VerbTable::~VerbTable() = default;

void VerbTable::add(const Command& command, const Verb& verb) {
    CLI::App* parent = &m_app;
    std::string name = verb.path;
    for (auto blank = name.find(' '); blank != std::string::npos; blank = name.find(' ')) {
        parent = parent->get_subcommand(name.substr(0, blank));
        name.erase(0, blank + 1);
    }
    auto& parsed = *parent->add_subcommand(name, verb.help);
    parsed.group(TranslatedHelp::commands);
    if (verb.examples != nullptr) {
        parsed.require_subcommand(1)->footer(tr(verb.examples));
        return;
    }
    parsed.footer(tr(VerbPrinting::exitCodes));
    if (*verb.help == '\0') {
        parsed.group("");
    }
    if (command.hasJson) {
        parsed.add_flag("--json", m_asJson, marked("Print JSON, for programs"));
    }
    for (const Word& word : verb.words) {
        addWord(parsed, word);
    }
    m_added.push_back({&parsed, &command, &verb});
}

void VerbTable::addWord(CLI::App& parsed, const Word& word) {
    if (word.use == Word::Use::rest) {
        parsed.prefix_command();
        return;
    }
    auto* const option = word.kind == ValueKind::flag ? parsed.add_flag(word.name, word.help)
                         : word.kind == ValueKind::number
                             ? parsed.add_option(word.name, m_numbers.emplace_back(word.fallback), word.help)
                                   ->capture_default_str()
                         : word.use == Word::Use::repeated
                             ? parsed.add_option(word.name, m_lists.emplace_back(), word.help)
                             : parsed.add_option(word.name, m_values.emplace_back(), word.help);
    if (word.excluded != nullptr) {
        option->excludes(parsed.get_option(word.excluded));
    }
    if (const auto choices = choicesOf(word.kind); !choices.empty()) {
        option->check(CLI::IsMember(choices));
    }
    option->required(option->get_positional() && word.use != Word::Use::optional);
    m_words[option] = &word;
}

Typed VerbTable::typed(const Added& added) const {
    Typed typed;
    for (const CLI::Option* const option : added.parsed->get_options()) {
        if (const auto word = m_words.find(option); word != m_words.end()) {
            if (option->count() > 0) {
                typed.add(word->second->name, option->results());
            } else if (word->second->kind == ValueKind::number) {
                typed.add(word->second->name, {std::to_string(word->second->fallback)});
            }
        }
    }
    for (const Word& word : added.verb->words) {
        if (word.use == Word::Use::rest) {
            typed.add(word.name, added.parsed->remaining());
        }
    }
    return typed;
}

ExitCode VerbTable::run(const VerbEnvironment& environment) const {
    for (const Added& added : m_added) {
        if (added.parsed->parsed() && added.parsed->get_subcommands().empty()) {
            const Typed words = typed(added);
            const VerbCall call{.environment = environment,
                                .typed = words,
                                .output = m_asJson ? VerbOutput::json : VerbOutput::text,
                                .program =
                                    [this] {
                                        return CommandShape::of(m_app, [this](const CLI::Option& option) {
                                            const auto word = m_words.find(&option);
                                            return word == m_words.end() ? ValueKind::text
                                                                         : word->second->kind;
                                        });
                                    },
                                .help = [this](const auto& path) { return UsageMistake::help(m_app, path); }};
            try {
                return added.command->run ? added.command->run(call)
                                          : VerbPrinting::run(*added.command, *added.verb, call);
            } catch (const std::exception& error) {
                return VerbPrinting::complainAboutReply(error);
            }
        }
    }
    return ExitCode::usage;
}

} // namespace vantrel

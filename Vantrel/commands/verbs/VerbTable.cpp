#include "Vantrel/commands/verbs/VerbTable.h"

#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/text/SafeText.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <utility>

namespace vantrel {

CLI::App& VerbTable::add(CLI::App& parent, const std::string& name, const std::string& description, Run run) {
    auto& command = addPlain(parent, name, description, std::move(run));
    command.add_flag("--json", m_asJson, "Print JSON, for programs");
    return command;
}

CLI::App& VerbTable::addPlain(CLI::App& parent, const std::string& name, const std::string& description,
                              Run run) {
    auto* const command = parent.add_subcommand(name, description)->footer(VerbPrinting::exitCodes);
    m_verbs.push_back({command, std::move(run)});
    return *command;
}

CLI::Option* VerbTable::takes(ValueKind kind, CLI::Option* option) {
    m_kinds[option] = kind;
    return option;
}

ValueKind VerbTable::kindOf(const CLI::Option& option) const {
    const auto found = m_kinds.find(&option);
    return found == m_kinds.end() ? ValueKind::text : found->second;
}

void VerbTable::add(CLI::App& app, const std::vector<Command>& commands) {
    for (const Command& command : commands) {
        for (const Verb& verb : command.verbs) {
            CLI::App* parent = &app;
            std::string name = verb.path;
            for (auto blank = name.find(' '); blank != std::string::npos; blank = name.find(' ')) {
                parent = parent->get_subcommand(name.substr(0, blank));
                name.erase(0, blank + 1);
            }
            if (verb.examples != nullptr) {
                parent->add_subcommand(name, verb.help)->require_subcommand(1)->footer(verb.examples);
                continue;
            }
            auto& added = addPlain(*parent, name, verb.help, {});
            added.add_flag("--json", m_asJson, "Print JSON, for programs");
            std::map<std::string, const CLI::Option*> options;
            for (const Word& word : verb.words) {
                options[word.name] = addWord(added, word);
            }
            m_verbs.back().run = [this, command, verb, options](VerbOutput output) {
                Typed typed;
                for (const auto& [word, option] : options) {
                    if (option->count() > 0) {
                        typed.add(word, option->results());
                    }
                }
                const VerbCall call{.environment = m_environment, .typed = typed, .output = output};
                return command.run ? command.run(call) : VerbPrinting::run(command, verb, call);
            };
        }
    }
}

const CLI::Option* VerbTable::addWord(CLI::App& verb, const Word& word) {
    if (word.kind == ValueKind::flag) {
        return verb.add_flag(word.name, word.help);
    }
    auto* const option = word.use == Word::Use::repeated
                             ? verb.add_option(word.name, m_lists.emplace_back(), word.help)
                             : verb.add_option(word.name, m_values.emplace_back(), word.help);
    if (word.excluded != nullptr) {
        option->excludes(verb.get_option(word.excluded));
    }
    option->required(option->get_positional() && word.use != Word::Use::optional);
    return takes(word.kind, option);
}

ExitCode VerbTable::run() const {
    for (const auto& verb : m_verbs) {
        if (verb.command->parsed() && verb.command->get_subcommands().empty()) {
            try {
                return verb.run(m_asJson ? VerbOutput::json : VerbOutput::text);
            } catch (const std::exception& error) {
                return VerbPrinting::complainAboutReply(error);
            }
        }
    }
    return ExitCode::usage;
}

namespace VerbPrinting {

namespace {

void write(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

} // namespace

void print(std::string_view text) {
    write(SafeText::lines(text));
}

nlohmann::json safe(nlohmann::json answer) {
    if (answer.is_string()) {
        return SafeText::line(answer.get_ref<const std::string&>());
    }
    if (answer.is_structured()) {
        for (auto& each : answer) {
            each = safe(std::move(each));
        }
    }
    return answer;
}

ExitCode complain(const std::string& sentence, ExitCode code) {
    std::fflush(stdout);
    fmt::print(stderr, "vantrelctl: {}\n", SafeText::line(sentence));
    return code;
}

ExitCode complain(const ControlFailure& failure) {
    return complain(failure.message, failure.kind == ControlFailure::Kind::notRunning ? ExitCode::notRunning
                                                                                      : ExitCode::failed);
}

void printJson(const nlohmann::json& json) {
    write(SafeText::json(json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace)) + '\n');
}

ExitCode complainAboutReply(const std::exception& error) {
    return complain(fmt::format("vantrel sent a reply that vantrelctl does not understand ({}). Do vantrel "
                                "and vantrelctl have the same version?",
                                error.what()),
                    ExitCode::failed);
}

ExitCode run(const Command& command, const Verb& verb, const VerbCall& call) {
    std::vector<std::string> arguments;
    if (verb.arguments) {
        arguments = verb.arguments(call.typed);
    } else {
        for (const Word& word : verb.words) {
            arguments.push_back(call.typed[word.name]);
        }
    }
    return show(ControlClient::call(command.method, arguments), command.text, call);
}

ExitCode show(const ControlClient::Result<nlohmann::json>& answer, const VerbText& text,
              const VerbCall& call) {
    const auto shown = show<nlohmann::json>(answer, call.output,
                                            [&](const nlohmann::json& reply) { return text(reply, call); });
    const bool hasFailed = answer && answer->value("failed", std::size_t{0}) > 0;
    return shown == ExitCode::done && hasFailed ? ExitCode::failed : shown;
}

std::string savedText(const nlohmann::json& saved) {
    const auto windows = JsonCoding::required<std::int64_t>(saved, "windows");
    const auto layout = JsonCoding::required<std::string>(saved, "layoutName");
    return fmt::format("Saved {} {} for {}{}.\n", windows, windows == 1 ? "window" : "windows",
                       JsonCoding::required<std::string>(saved, "configName"),
                       layout == Layout::defaultName ? "" : " as \"" + layout + '"');
}

ExitCode showReport(const ControlClient::Result<nlohmann::json>& answer, const VerbEnvironment& environment,
                    VerbOutput output) {
    const auto shown = show<RestoreReport>(answer, output, [&](const RestoreReport& report) {
        return CommandTexts::report(report, environment.drawing());
    });
    const bool hasFailed = answer && answer->value("failed", std::size_t{0}) > 0;
    return shown == ExitCode::done && hasFailed ? ExitCode::failed : shown;
}

} // namespace VerbPrinting

} // namespace vantrel

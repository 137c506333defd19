// The verbs of vantrelctl: names, descriptions and what they do.
#pragma once

#include "Vantrel/commands/Command.h"
#include "Vantrel/commands/verbs/VerbCall.h"

#include <deque>
#include <fmt/format.h>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace vantrel {

class VerbTable {
public:
    // Receives the output format the user chose.
    using Run = std::function<ExitCode(VerbOutput)>;

    explicit VerbTable(VerbEnvironment environment) : m_environment(std::move(environment)) {}

    // Adds the commands' verbs in their order; a verb comes after those above it.
    void add(CLI::App& app, const std::vector<Command>& commands);

    // Adds a verb with --json below `parent`. Variables set by the caller's options must live as long as the
    // verb: keep them in `run`.
    CLI::App& add(CLI::App& parent, const std::string& name, const std::string& description, Run run);
    // Adds a verb that prints for people only.
    CLI::App& addPlain(CLI::App& parent, const std::string& name, const std::string& description, Run run);

    // Sets what an option or argument takes; `text` unless set. Returns the option.
    CLI::Option* takes(ValueKind kind, CLI::Option* option);
    [[nodiscard]] ValueKind kindOf(const CLI::Option& option) const;

    // Runs the innermost parsed verb.
    [[nodiscard]] ExitCode run() const;

    [[nodiscard]] const VerbEnvironment& environment() const { return m_environment; }

private:
    struct Added {
        const CLI::App* command;
        Run run;
    };

    // Returns the parser's option.
    const CLI::Option* addWord(CLI::App& verb, const Word& word);

    VerbEnvironment m_environment;
    std::vector<Added> m_verbs;
    // Where the parser puts what it reads; `Typed` takes it from there.
    std::deque<std::string> m_values;
    std::deque<std::vector<std::string>> m_lists;
    std::map<const CLI::Option*, ValueKind> m_kinds;
    bool m_asJson = false;
};

// All output of the verbs goes through here, where outside text is made safe for a terminal (SafeText).
namespace VerbPrinting {

inline constexpr const char* exitCodes = "Exit codes: 0 done, 1 failed (or a window could not be restored), "
                                         "2 usage error, 3 vantrel is not running.";

// Prints lines for people.
void print(std::string_view text);
// Prints to standard error, prefixed with the program's name.
ExitCode complain(const std::string& sentence, ExitCode code);
ExitCode complain(const ControlFailure& failure);
void printJson(const nlohmann::json& json);
ExitCode complainAboutReply(const std::exception& error);

// Makes every string of the reply safe and keeps it on one line, so that no name can start a line or a
// column.
[[nodiscard]] nlohmann::json safe(nlohmann::json answer);

// Prints the reply as it came, or as formatted by `text`, which takes the decoded message.
template <typename Message, typename Text>
ExitCode show(const ControlClient::Result<nlohmann::json>& answer, VerbOutput output, Text&& text) {
    if (!answer) {
        return complain(answer.error());
    }
    if (output == VerbOutput::json) {
        printJson(*answer);
        return ExitCode::done;
    }
    try {
        print(text(JsonCoding::value<Message>(safe(*answer))));
    } catch (const std::exception& error) {
        return complainAboutReply(error);
    }
    return ExitCode::done;
}

// Calls the command's method as the verb says and prints the reply. The exit code is `failed` if the reply
// reports windows that could not be restored.
ExitCode run(const Command& command, const Verb& verb, const VerbCall& call);

// Prints the reply of a command.
ExitCode show(const ControlClient::Result<nlohmann::json>& answer, const VerbText& text,
              const VerbCall& call);

// Describes what was saved.
[[nodiscard]] std::string savedText(const nlohmann::json& saved);

// Prints a restore's report. The exit code is `failed` if a window could not be restored.
ExitCode showReport(const ControlClient::Result<nlohmann::json>& answer, const VerbEnvironment& environment,
                    VerbOutput output);

} // namespace VerbPrinting

} // namespace vantrel

// What a shell and man(1) need to know about the verbs.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/shell/Completion.h"
#include "Vantrel/commands/shell/CompletionValues.h"
#include "Vantrel/commands/shell/ManualPage.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace vantrel {

namespace {

ExitCode completion(const VerbCall& call) {
    VerbPrinting::print(Completion::script(call.typed["shell"], call.program().name));
    return ExitCode::done;
}

ExitCode printManual(const VerbCall& call) {
    VerbPrinting::print(ManualPage::roff(call.program(), call.environment.version));
    return ExitCode::done;
}

ExitCode help(const VerbCall& call) {
    const auto text = call.help(call.typed.all("COMMAND"));
    if (!text) {
        return VerbPrinting::complain(text.error(), ExitCode::usage);
    }
    VerbPrinting::print(*text);
    return ExitCode::done;
}

// Exits with an error where the shell should complete file names instead.
ExitCode complete(const VerbCall& call) {
    auto words = call.typed.all("WORD");
    if (words.empty()) {
        return ExitCode::usage;
    }
    const std::string shell = words.front();
    const std::string current = words.size() > 1 ? words.back() : "";
    words.erase(words.begin());
    if (shell == "bash") {
        std::ranges::transform(words, words.begin(), Completion::unquoted);
    }
    auto [candidates, kind, typed] = Completion::expected(call.program(), words);
    if (kind == ValueKind::file) {
        return ExitCode::failed;
    }
    const auto ask = [](const char* method) {
        return ControlClient::call(method, {}, ControlClient::Patience::brief)
            .value_or(nlohmann::json::object());
    };
    std::ranges::move(CompletionValues::of(kind.value_or(ValueKind::text), typed,
                                           {.ask = ask,
                                            .files = call.environment.files,
                                            .storeFolders = {call.environment.supportDirectory,
                                                             call.environment.stateDirectory}}),
                      std::back_inserter(candidates));
    // Not print(), which replaces the tabs that fish needs.
    fmt::print("{}", Completion::answer(shell, candidates, current));
    return ExitCode::done;
}

} // namespace

std::vector<Command> shellCommands() {
    return {
        {.verbs = {{"help",
                    marked("Show the help of a command"),
                    {{.name = "COMMAND",
                      .help = marked("The command, with all its words"),
                      .use = Word::Use::rest}}}},
         .run = help,
         .hasJson = false},
        {.verbs = {{"completion",
                    marked("Print a shell's completion script"),
                    {{"shell", marked("bash, zsh or fish"), ValueKind::shell}}}},
         .run = completion,
         .hasJson = false},
        {.verbs = {{"manual", marked("Print the manual page, for man(1)")}},
         .run = printManual,
         .hasJson = false},
        {.verbs = {{Completion::verb, "", {{.name = "WORD", .use = Word::Use::rest}}}},
         .run = complete,
         .hasJson = false},
    };
}

} // namespace vantrel

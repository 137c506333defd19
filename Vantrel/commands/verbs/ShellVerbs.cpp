#include "Vantrel/commands/verbs/ShellVerbs.h"

#include "Vantrel/commands/shell/Completion.h"
#include "Vantrel/commands/shell/CompletionValues.h"
#include "Vantrel/commands/shell/ManualPage.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>
#include <memory>

namespace vantrel {

namespace {

ManualPage::Frame manual(const std::string& version) {
    return {.version = version,
            .purpose = "query and control the running vantrel",
            .description =
                "Communicates with a running vantrel over the session bus. Shows the current desk, what "
                "is saved and what the last restores did; saves, restores and changes what is "
                "saved. Most commands take --json.",
            .exitCodes = {{"0", "Done."},
                          {"1", "Failed, or a window could not be restored."},
                          {"2", "Usage error."},
                          {"3", "vantrel is not running."}},
            .files = {{"$XDG_CONFIG_HOME/vantrel/settings.conf", "The settings."},
                      {"$XDG_DATA_HOME/Vantrel", "Layouts, scenes, history and the log."}},
            .examples = {{"vantrelctl save", "Remember where the windows are now."},
                         {"vantrelctl restore", "Put them back and list the result for each."},
                         {"vantrelctl desks", "Draw every remembered desk."},
                         {"vantrelctl log --follow", "Watch what vantrel does."}},
            .seeAlso = {"vantrel"}};
}

CommandShape shapeOf(const CLI::App& app, const VerbTable& table) {
    return CommandShape::of(app, [&table](const CLI::Option& option) { return table.kindOf(option); });
}

// Fails where the shell should offer files.
ExitCode complete(const CommandShape& program, const VerbEnvironment& environment,
                  std::vector<std::string> words) {
    if (words.empty()) {
        return ExitCode::usage;
    }
    const std::string shell = words.front();
    const std::string current = words.size() > 1 ? words.back() : "";
    words.erase(words.begin());
    if (shell == "bash") {
        std::ranges::transform(words, words.begin(), Completion::unquoted);
    }
    auto [candidates, kind, typed] = Completion::expected(program, words);
    if (kind == ValueKind::file) {
        return ExitCode::failed;
    }
    const auto ask = [](const char* method) {
        return ControlClient::call(method, {}, ControlClient::Patience::brief)
            .value_or(nlohmann::json::object());
    };
    std::ranges::move(
        CompletionValues::of(
            kind.value_or(ValueKind::text), typed,
            {.ask = ask, .files = environment.files, .supportDirectory = environment.supportDirectory}),
        std::back_inserter(candidates));
    // Not print(), which replaces the tabs that fish needs.
    fmt::print("{}", Completion::answer(shell, candidates, current));
    return ExitCode::done;
}

} // namespace

void addShellVerbs(VerbTable& table, CLI::App& app, const std::string& version) {
    const auto shell = std::make_shared<std::string>();
    auto& completion =
        table.addPlain(app, "completion", "Print a shell's completion script", [&app, shell](auto) {
            VerbPrinting::print(Completion::script(*shell, app.get_name()));
            return ExitCode::done;
        });
    table.takes(ValueKind::shell, completion.add_option("shell", *shell, "bash, zsh or fish"))
        ->required()
        ->check(CLI::IsMember({"bash", "fish", "zsh"}));
    table.addPlain(app, "manual", "Print the manual page, for man(1)", [&app, &table, version](auto) {
        VerbPrinting::print(ManualPage::roff(shapeOf(app, table), manual(version)));
        return ExitCode::done;
    });
    auto& completing = table.addPlain(app, Completion::verb, "", [&app, &table](auto) {
        return complete(shapeOf(app, table), table.environment(),
                        app.get_subcommand(Completion::verb)->remaining());
    });
    // Hidden, and takes everything that follows as it was typed.
    completing.group("")->prefix_command();
}

} // namespace vantrel

#include "Vantrel/commands/verbs/ShellVerbs.h"

#include "Vantrel/commands/shell/Completion.h"
#include "Vantrel/commands/shell/ManualPage.h"

#include <CLI/CLI.hpp>

#include <map>
#include <memory>

namespace vantrel {

namespace {

using Script = std::string (*)(const CommandShape&);

const std::map<std::string, Script>& scripts() {
    static const std::map<std::string, Script> table{
        {"bash", Completion::bash}, {"fish", Completion::fish}, {"zsh", Completion::zsh}};
    return table;
}

ManualPage::Frame manual(const std::string& version) {
    return {.version = version,
            .purpose = "ask the running vantrel, and have it save and restore windows",
            .description = "Talks to a running vantrel over the session bus: which desk this is, what it "
                           "remembers and what its restores did; and has it save, restore and change what it "
                           "remembers. Every command that prints takes --json.",
            .exitCodes = {{"0", "Done."},
                          {"1", "Failed, or a window did not go back."},
                          {"2", "Wrong usage."},
                          {"3", "vantrel is not running."}},
            .files = {{"$XDG_CONFIG_HOME/vantrel/settings.conf", "The settings."},
                      {"$XDG_DATA_HOME/Vantrel", "Layouts, scenes, history and the log."}},
            .examples = {{"vantrelctl save", "Remember the windows where they stand now."},
                         {"vantrelctl restore", "Put them back, and say what became of each."},
                         {"vantrelctl desks", "Draw every desk that is remembered."},
                         {"vantrelctl log --follow", "Watch what vantrel does."}},
            .seeAlso = {"vantrel"}};
}

} // namespace

void addShellVerbs(VerbTable& table, CLI::App& app, const std::string& version) {
    const auto shell = std::make_shared<std::string>();
    auto& completion =
        table.addPlain(app, "completion", "Print the completion script of a shell", [&app, shell](auto) {
            VerbPrinting::print(scripts().at(*shell)(CommandShape::of(app)));
            return ExitCode::done;
        });
    completion.add_option("shell", *shell, "bash, zsh or fish")->required()->check(CLI::IsMember(scripts()));
    table.addPlain(app, "manual", "Print the manual page, for man(1)", [&app, version](auto) {
        VerbPrinting::print(ManualPage::roff(CommandShape::of(app), manual(version)));
        return ExitCode::done;
    });
}

} // namespace vantrel

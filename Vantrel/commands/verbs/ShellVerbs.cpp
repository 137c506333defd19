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

} // namespace

void addShellVerbs(VerbTable& table, CLI::App& app, const std::string& version) {
    const auto shell = std::make_shared<std::string>();
    auto& completion =
        table.addPlain(app, "completion", "Print a shell's completion script", [&app, shell](auto) {
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

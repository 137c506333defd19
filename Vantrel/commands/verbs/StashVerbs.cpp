#include "Vantrel/commands/verbs/StashVerbs.h"

#include "Vantrel/commands/terminal/CommandTexts.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;

ExitCode list(const VerbEnvironment& environment, VerbOutput output) {
    return show<StashesMessage>(ControlClient::call("Stashes"), output, [&](const StashesMessage& message) {
        const auto text = CommandTexts::stashes(message, environment.drawing(), environment.localDate);
        return text.empty() ? "Nothing is stashed. Put this desk aside with: vantrelctl stash now\n" : text;
    });
}

ExitCode tellStash(const ControlClient::Result<nlohmann::json>& answer, VerbOutput output) {
    return show<nlohmann::json>(answer, output, [](const nlohmann::json& stash) {
        const auto windows = JsonCoding::required<std::int64_t>(stash, "windows");
        return fmt::format("Put {} {} of {} aside, for 7 days. Bring them back with: vantrelctl stash back\n",
                           windows, windows == 1 ? "window" : "windows",
                           JsonCoding::required<std::string>(stash, "configName"));
    });
}

ExitCode toggle(const VerbEnvironment& environment, VerbOutput output) {
    const auto answer = ControlClient::call("ToggleStash");
    const bool isReport = answer && answer->contains("restored");
    return isReport ? showReport(answer, environment, output) : tellStash(answer, output);
}

} // namespace

void addStashVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    table.add(app, "undo", "Put the windows back to where they were before the last restore or switch",
              [&environment](VerbOutput output) {
                  return showReport(ControlClient::call("Undo"), environment, output);
              });

    const auto listed = [&environment](VerbOutput output) { return list(environment, output); };
    auto& stash =
        table.add(app, "stash", "List the desks put aside, put this one aside, bring one back", listed);
    table.add(stash, "list", "List the desks put aside; \"back\" takes the one with the star", listed);
    table.add(stash, "now", "Put this desk aside: remember it for 7 days as it stands",
              [](VerbOutput output) { return tellStash(ControlClient::call("Stash"), output); });
    table.add(stash, "toggle", "Bring this desk's newest stash back; without one, put the desk aside",
              [&environment](VerbOutput output) { return toggle(environment, output); });
    const auto id = std::make_shared<std::string>();
    table
        .add(stash, "back", "Bring back a desk put aside",
             [&environment, id](VerbOutput output) {
                 return showReport(ControlClient::call("BringBack", {*id}), environment, output);
             })
        .add_option("stash", *id, "The stash, by the beginning of its id; else this desk's newest");
}

} // namespace vantrel

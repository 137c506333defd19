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
        return text.empty() ? "Nothing is stashed. Stash this desk with: vantrelctl stash now\n" : text;
    });
}

ExitCode showStash(const ControlClient::Result<nlohmann::json>& answer, VerbOutput output) {
    return show<nlohmann::json>(answer, output, [](const nlohmann::json& stash) {
        const auto windows = JsonCoding::required<std::int64_t>(stash, "windows");
        return fmt::format("Stashed {} {} of {} for 7 days. Bring them back with: vantrelctl stash back\n",
                           windows, windows == 1 ? "window" : "windows",
                           JsonCoding::required<std::string>(stash, "configName"));
    });
}

ExitCode toggle(const VerbEnvironment& environment, VerbOutput output) {
    const auto answer = ControlClient::call("ToggleStash");
    const bool isReport = answer && answer->contains("restored");
    return isReport ? showReport(answer, environment, output) : showStash(answer, output);
}

} // namespace

void addStashVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    table.add(app, "undo", "Return the windows to where they were before the last restore or switch",
              [&environment](VerbOutput output) {
                  return showReport(ControlClient::call("Undo"), environment, output);
              });

    const auto listed = [&environment](VerbOutput output) { return list(environment, output); };
    auto& stash = table.add(app, "stash", "List stashes, stash this desk, bring a stash back", listed);
    table.add(stash, "list", "List the stashes; a star marks the one that \"back\" brings back", listed);
    table.add(stash, "now", "Stash this desk as it is for 7 days",
              [](VerbOutput output) { return showStash(ControlClient::call("Stash"), output); });
    table.add(stash, "toggle", "Bring this desk's newest stash back; without one, stash the desk",
              [&environment](VerbOutput output) { return toggle(environment, output); });
    const auto id = std::make_shared<std::string>();
    auto& back = table.add(stash, "back", "Bring a stash back", [&environment, id](VerbOutput output) {
        return showReport(ControlClient::call("BringBack", {*id}), environment, output);
    });
    table.takes(
        ValueKind::stash,
        back.add_option("stash", *id, "The beginning of the stash's ID; defaults to this desk's newest"));
}

} // namespace vantrel

#include "Vantrel/commands/verbs/LayoutVerbs.h"

#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;

struct Names {
    std::string name;
    std::string newName;
    std::string desk;
};

using Shared = std::shared_ptr<Names>;

ExitCode list(const VerbEnvironment& environment, VerbOutput output) {
    return show<DeskMessage>(ControlClient::call("Layouts"), output, [&](const DeskMessage& desk) {
        const auto text = CommandTexts::layouts(desk, environment.drawing(), environment.localDate);
        return text.empty() ? "No layout is saved for this desk yet. Save one with: vantrelctl save\n" : text;
    });
}

ExitCode save(const Names& names, VerbOutput output) {
    return show<nlohmann::json>(ControlClient::call("SaveLayoutAs", {names.name}), output, savedText);
}

ExitCode rename(const Names& names, VerbOutput output) {
    return show<nlohmann::json>(ControlClient::call("RenameLayout", {names.name, names.newName}), output,
                                [&](const nlohmann::json& layout) {
                                    return fmt::format(
                                        "Layout \"{}\" is now called \"{}\".\n", names.name,
                                        JsonCoding::required<std::string>(layout, "layoutName"));
                                });
}

ExitCode remove(const Names& names, VerbOutput output) {
    return show<nlohmann::json>(
        ControlClient::call("DeleteLayout", {names.name}), output, [&](const nlohmann::json& layout) {
            return fmt::format("Deleted layout \"{}\". The active layout is \"{}\".\n", names.name,
                               JsonCoding::required<std::string>(layout, "activeLayoutName"));
        });
}

} // namespace

void addLayoutVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    const auto listed = [&environment](VerbOutput output) { return list(environment, output); };
    auto& layouts = table.add(app, "layouts", "List and manage this desk's layouts", listed);
    table.add(layouts, "list", "List this desk's layouts; the active one has a star", listed);

    const Shared names = std::make_shared<Names>();
    const auto named = [&](const char* verb, const char* description, VerbTable::Run run) -> CLI::App& {
        auto& added = table.add(layouts, verb, description, std::move(run));
        table.takes(ValueKind::layout, added.add_option("name", names->name, "The layout's name"))
            ->required();
        return added;
    };
    named("switch", "Make a layout active and restore its windows", [&environment, names](VerbOutput output) {
        return showReport(ControlClient::call("SwitchLayout", {names->name}), environment, output);
    });
    auto& applied =
        named("apply", "Arrange the windows as in a layout, even one of another desk",
              [&environment, names](VerbOutput output) {
                  return showReport(ControlClient::call("ApplyLayout", {names->desk, names->name}),
                                    environment, output);
              });
    table.takes(
        ValueKind::desk,
        applied.add_option("--desk", names->desk, "The layout's desk, by name or ID; defaults to this desk"));
    named("save", "Save the windows under this name and make it the active layout",
          [names](VerbOutput output) { return save(*names, output); });
    named("rename", "Rename a layout", [names](VerbOutput output) { return rename(*names, output); })
        .add_option("new-name", names->newName, "Its new name")
        ->required();
    named("delete", "Delete a layout; if it was active, another one is restored in its place",
          [names](VerbOutput output) { return remove(*names, output); });
}

} // namespace vantrel

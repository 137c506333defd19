// The commands for the current desk's named layouts.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>

namespace vantrel {

namespace {

using namespace ControlAnswers;

ControlAnswer layouts(const BusCall& call) {
    const auto message = desks(call.controller);
    const bool isAny = !message.desks.empty() && message.desks.front().isCurrent;
    return isAny ? ControlAnswer(message.desks.front()) : refused("No display is awake.");
}

// The desk is an ID or a name; empty means the current desk.
void apply(const BusCall& call) {
    const auto& [desk, name] = std::tie(call[0], call[1]);
    const auto all = call.controller.allLayouts();
    const std::string wanted = desk.empty() ? call.controller.published().configID : desk;
    const auto find = [&](auto deskOf) {
        return std::ranges::find_if(
            all, [&](const Layout& layout) { return layout.*deskOf == wanted && layout.layoutName == name; });
    };
    auto found = find(&Layout::configID);
    if (found == all.end() && !desk.empty()) {
        found = find(&Layout::name);
    }
    if (found == all.end()) {
        call.reply(refused("There is no layout with that name."));
    } else {
        call.controller.layouts().applyLayout(*found, restoreReply(call.reply));
    }
}

// `name` is the layout's name after the change.
ControlAnswer changed(const BusCall& call, LayoutChange change, const std::string& name) {
    const auto& state = call.controller.published();
    return change.kind == LayoutChange::Kind::done
               ? ControlAnswer({{"configID", state.configID},
                                {"configName", state.deskName()},
                                {"layoutName", name},
                                {"activeLayoutName", state.activeLayoutName}})
               : refused(change.text());
}

constexpr Word name{"name", "The layout's name", ValueKind::layout};

} // namespace

std::vector<Command> layoutCommands() {
    return {
        {.signature = "Layouts() layouts",
         .handler = layouts,
         .verbs = {{"layouts", "List and manage this desk's layouts"},
                   {"layouts list", "List this desk's layouts; the active one has a star"}},
         .text = VerbTexts::of<DeskMessage>(
             CommandTexts::layouts,
             "No layout is saved for this desk yet. Save one with: vantrelctl save\n")},
        {.signature = "SwitchLayout(name) report",
         .handler =
             [](const BusCall& call) {
                 call.controller.layouts().switchLayout(call[0], restoreReply(call.reply));
             },
         .verbs = {{"layouts switch", "Make a layout active and restore its windows", {name}}},
         .text = VerbTexts::report},
        {.signature = "ApplyLayout(desk, name) report",
         .handler = apply,
         .verbs = {{"layouts apply",
                    "Arrange the windows as in a layout, even one of another desk",
                    {name,
                     {"--desk", "The layout's desk, by name or ID; defaults to this desk", ValueKind::desk}},
                    [](const Typed& typed) { return std::vector{typed["--desk"], typed["name"]}; }}},
         .text = VerbTexts::report},
        {.signature = "SaveLayoutAs(name) saved",
         .handler =
             [](const BusCall& call) {
                 call.controller.layouts().saveLayoutAs(call[0],
                                                        saveReply(call.controller.published(), call.reply));
             },
         .verbs = {{"layouts save",
                    "Save the windows under this name and make it the active layout",
                    {name}}},
         .text = VerbTexts::saved},
        {.signature = "RenameLayout(name, newName) layout",
         .handler =
             [](const BusCall& call) {
                 return changed(call, call.controller.layouts().rename(call[0], call[1]),
                                std::string(Unicode::trimmed(call[1])));
             },
         .verbs = {{"layouts rename", "Rename a layout", {name, {"new-name", "Its new name"}}}},
         .text = VerbTexts::sentence("Layout \"{:name}\" is now called \"{layoutName}\".")},
        {.signature = "DeleteLayout(name) layout",
         .handler =
             [](const BusCall& call) {
                 return changed(call, call.controller.layouts().remove(call[0]), call[0]);
             },
         .verbs = {{"layouts delete",
                    "Delete a layout; if it was active, another one is restored in its place",
                    {name}}},
         .text = VerbTexts::sentence("Deleted layout \"{:name}\". The active layout is "
                                     "\"{activeLayoutName}\". To put it back: vantrelctl undelete")},
    };
}

} // namespace vantrel

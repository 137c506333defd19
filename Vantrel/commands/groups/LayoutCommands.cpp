// The commands for the named layouts of desks.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/DryRun.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>

namespace vantrel {

namespace {

using namespace ControlAnswers;

ControlAnswer layouts(const BusCall& call) {
    const auto message = desks(call.controller);
    const bool isAny = !message.desks.empty() && message.desks.front().isCurrent;
    return isAny ? ControlAnswer(message.desks.front()) : refused(tr("No display is awake."));
}

// The desk is an ID or a name; empty means the current desk. None if there is no
// such layout.
std::optional<Layout> layoutCalled(AppController& controller, const std::string& desk,
                                   const std::string& name) {
    const auto all = controller.allLayouts();
    const std::string wanted = desk.empty() ? controller.published().configID : desk;
    const auto find = [&](auto deskOf) {
        return std::ranges::find_if(
            all, [&](const Layout& layout) { return layout.*deskOf == wanted && layout.layoutName == name; });
    };
    auto found = find(&Layout::configID);
    if (found == all.end() && !desk.empty()) {
        found = find(&Layout::name);
    }
    return found == all.end() ? std::nullopt : std::optional(*found);
}

void apply(const BusCall& call) {
    if (const auto layout = layoutCalled(call.controller, call[0], call[1])) {
        call.controller.layouts().applyLayout(*layout, restoreReply(call.reply));
    } else {
        call.reply(refused(tr("There is no layout with that name.")));
    }
}

void preview(const BusCall& call) {
    if (const auto layout = layoutCalled(call.controller, call[0], call[1])) {
        call.controller.previews().previewLayout(*layout, DryRun::reply(call.reply));
    } else {
        call.reply(refused(tr("There is no layout with that name.")));
    }
}

// Calls `change` with the desk that the first argument names. `name` is the layout's name after the change.
template <typename Change>
ControlAnswer changed(const BusCall& call, const std::string& name, Change&& change) {
    const auto desk = deskCalled(call.controller.published(), call[0]);
    if (!desk) {
        return refused(desk.error());
    }
    const LayoutChange result = change(call.controller.layouts(), desk->configID);
    return result.kind == LayoutChange::Kind::done
               ? ControlAnswer({{"configID", desk->configID},
                                {"configName", desk->name},
                                {"layoutName", name},
                                {"activeLayoutName", call.controller.activeLayoutName(desk->configID)}})
               : refused(result.text());
}

ControlAnswer rename(const BusCall& call) {
    return changed(call, std::string(Unicode::trimmed(call[2])),
                   [&](LayoutFlow& flow, const auto& desk) { return flow.rename(desk, call[1], call[2]); });
}

ControlAnswer remove(const BusCall& call) {
    return changed(call, call[1],
                   [&](LayoutFlow& flow, const auto& desk) { return flow.remove(desk, call[1]); });
}

BusHandler setPinned(bool isPinned) {
    return [isPinned](const BusCall& call) {
        return changed(call, call[1], [&](LayoutFlow& flow, const auto& desk) {
            return flow.setPinned(isPinned, desk, call[1]);
        });
    };
}

constexpr Word desk{"--desk", marked("The layout's desk, by name or ID; defaults to this desk"),
                    ValueKind::desk};

std::vector<std::string> deskAndName(const Typed& typed) {
    return {typed["--desk"], typed["name"]};
}

constexpr Word name{"name", marked("The layout's name"), ValueKind::layout};

} // namespace

std::vector<Command> layoutCommands() {
    return {
        {.signature = "Layouts() layouts",
         .handler = layouts,
         .verbs = {{"layouts", marked("List and manage this desk's layouts")},
                   {"layouts list", marked("List this desk's layouts; the active one has a star")}},
         .text = VerbTexts::of<DeskMessage>(
             CommandTexts::layouts,
             marked("No layout is saved for this desk yet. Save one with: vantrelctl save\n"))},
        {.signature = "SwitchLayout(name) report",
         .handler =
             [](const BusCall& call) {
                 call.controller.layouts().switchLayout(call[0], restoreReply(call.reply));
             },
         .verbs = {{"layouts switch", marked("Make a layout active and restore its windows"), {name}}},
         .text = VerbTexts::report},
        {.signature = "ApplyLayout(desk, name) report",
         .handler = apply,
         .verbs = {{"layouts apply",
                    marked("Arrange the windows as in a layout, even one of another desk"),
                    {name, desk, DryRun::option}}},
         .run =
             [](const VerbCall& call) {
                 return DryRun::run(call, "ApplyLayout", "PreviewLayout", deskAndName(call.typed));
             }},
        {.signature = "PreviewLayout(desk, name) preview", .handler = preview},
        {.signature = "SaveLayoutAs(name) saved",
         .handler =
             [](const BusCall& call) {
                 call.controller.layouts().saveLayoutAs(call[0],
                                                        saveReply(call.controller.published(), call.reply));
             },
         .verbs = {{"layouts save",
                    marked("Save the windows under this name and make it the active layout"),
                    {name}}},
         .text = VerbTexts::saved},
        {.signature = "RenameLayout(desk, name, newName) layout",
         .handler = rename,
         .verbs = {{"layouts rename",
                    marked("Rename a layout"),
                    {name, {"new-name", marked("Its new name")}, desk},
                    [](const Typed& typed) {
                        return std::vector{typed["--desk"], typed["name"], typed["new-name"]};
                    }}},
         .text = VerbTexts::sentence(marked("Layout \"{:name}\" is now called \"{layoutName}\"."))},
        {.signature = "PinLayout(desk, name) layout",
         .handler = setPinned(true),
         .verbs = {{"layouts pin", marked("Keep a layout as saved"), {name, desk}, deskAndName}},
         .text = VerbTexts::sentence(marked("Pinned layout \"{layoutName}\" of {configName}."))},
        {.signature = "UnpinLayout(desk, name) layout",
         .handler = setPinned(false),
         .verbs = {{"layouts unpin", marked("Learn a layout again"), {name, desk}, deskAndName}},
         .text = VerbTexts::sentence(marked("Unpinned layout \"{layoutName}\" of {configName}."))},
        {.signature = "DeleteLayout(desk, name) layout",
         .handler = remove,
         .verbs = {{"layouts delete",
                    marked("Delete a layout; if it was active, another one is restored in its place"),
                    {name, desk},
                    deskAndName}},
         .text = VerbTexts::sentence(marked("Deleted layout \"{:name}\". The active layout is "
                                            "\"{activeLayoutName}\". To put it back: vantrelctl undelete"))},
    };
}

} // namespace vantrel

#include "Vantrel/commands/methods/LayoutMethods.h"

#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/ControlNames.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

ControlAnswer refused(const std::string& sentence) {
    return std::unexpected(ControlRefusal{ControlNames::refused, sentence});
}

void layouts(AppController& controller, const ControlReply& reply) {
    const auto message =
        ControlAnswers::desks(controller.published(), controller.allLayouts(),
                              [&controller](const auto& desk) { return controller.activeLayoutName(desk); });
    const bool isAny = !message.desks.empty() && message.desks.front().isCurrent;
    reply(isAny ? ControlAnswer(message.desks.front()) : refused("No display is awake."));
}

// `desk` is an ID or a name; empty means the current desk.
void apply(AppController& controller, const std::string& desk, const std::string& name,
           const ControlReply& reply) {
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
    if (found == all.end()) {
        reply(refused("There is no layout with that name."));
    } else {
        controller.layouts().applyLayout(*found, ControlAnswers::restoreReply(reply));
    }
}

// `name` is the layout's name after the change.
void replyWithChange(AppController& controller, LayoutChange change, const std::string& name,
                     const ControlReply& reply) {
    const auto& state = controller.published();
    reply(change.kind == LayoutChange::Kind::done
              ? ControlAnswer({{"configID", state.configID},
                               {"configName", state.deskName()},
                               {"layoutName", name},
                               {"activeLayoutName", state.activeLayoutName}})
              : refused(change.text()));
}

} // namespace

std::vector<ControlMethod> layoutMethods(AppController& controller) {
    return {
        {"Layouts",
         {},
         "layouts",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) { layouts(controller, reply); }},
        {"SwitchLayout",
         {"name"},
         "report",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             controller.layouts().switchLayout(arguments[0], ControlAnswers::restoreReply(reply));
         }},
        {"ApplyLayout",
         {"desk", "name"},
         "report",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             apply(controller, arguments[0], arguments[1], reply);
         }},
        {"SaveLayoutAs",
         {"name"},
         "saved",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             controller.layouts().saveLayoutAs(arguments[0],
                                               ControlAnswers::saveReply(controller.published(), reply));
         }},
        {"RenameLayout",
         {"name", "newName"},
         "layout",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             replyWithChange(controller, controller.layouts().rename(arguments[0], arguments[1]),
                             std::string(Unicode::trimmed(arguments[1])), reply);
         }},
        {"DeleteLayout",
         {"name"},
         "layout",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             replyWithChange(controller, controller.layouts().remove(arguments[0]), arguments[0], reply);
         }},
    };
}

} // namespace vantrel

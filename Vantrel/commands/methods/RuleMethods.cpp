#include "Vantrel/commands/methods/RuleMethods.h"

#include "Vantrel/commands/ControlNames.h"
#include "VantrelCore/displays/DisplayLabels.h"

#include <fmt/format.h>

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;

ControlAnswer refusal(std::string sentence) {
    return std::unexpected(ControlRefusal{ControlNames::refused, std::move(sentence)});
}

ControlAnswer unknownApp(AppController& controller, const std::string& called) {
    std::string known;
    for (const auto& app : controller.rules().knownApps()) {
        known += fmt::format("{}{} ({})", known.empty() ? "" : ", ", app.appName, app.bundleID);
    }
    return refusal(fmt::format("There is no known application \"{}\".{}", called,
                               known.empty() ? "" : " Known applications: " + known + "."));
}

// Finds a display among connected and remembered ones.
std::expected<DisplayInfo, std::string> display(AppController& controller, const std::string& called) {
    std::vector<std::vector<DisplayInfo>> desks{controller.published().displays};
    for (const Layout& layout : controller.allLayouts()) {
        desks.push_back(layout.displays);
    }
    for (const Scene& scene : controller.published().scenes) {
        desks.push_back(scene.layout.displays);
    }
    return DisplayLabels::resolve(called, desks);
}

// Connected displays are shown with their current labels.
std::vector<AppRule> rules(AppController& controller) {
    const auto labels = DisplayLabels::of(controller.published().displays);
    auto rules = controller.rules().rules();
    for (AppRule& rule : rules) {
        if (auto* const forced = std::get_if<AppRule::ForceDisplay>(&rule.action)) {
            const auto label = labels.find(forced->uuid);
            forced->displayName = label == labels.end() ? forced->displayName : label->second;
        }
    }
    return rules;
}

// `action` is "ignore", "display" or "none"; `displayName` matters only for "display". An empty ID matches no
// display, so such a rule moves nothing and only carries `restoreLast`.
ControlAnswer setRule(AppController& controller, const Arguments& arguments) {
    const auto app = controller.rules().app(arguments[0]);
    if (!app) {
        return unknownApp(controller, arguments[0]);
    }
    AppRule rule{.bundleID = app->bundleID, .appName = app->appName, .action = {}, .restoreLast = {}};
    if (arguments[1] == "display") {
        const auto found = display(controller, arguments[2]);
        if (!found) {
            return refusal(found.error());
        }
        rule.action = AppRule::ForceDisplay{.uuid = found->uuid, .displayName = found->name};
    } else if (arguments[1] == "none") {
        rule.action = AppRule::ForceDisplay{};
    } else if (arguments[1] != "ignore") {
        return refusal(
            fmt::format("The action must be \"ignore\", \"display\" or \"none\", not \"{}\".", arguments[1]));
    }
    if (arguments[3] == "true") {
        rule.restoreLast = true;
    } else if (arguments[3] != "false") {
        return refusal("The argument restoreLast must be \"true\" or \"false\".");
    }
    if (arguments[1] == "none" && !rule.restoreLast) {
        return refusal("That rule would do nothing. To remove a rule: vantrelctl rules remove");
    }
    if (const auto result = controller.rules().setRule(rule); !result) {
        return refusal(text(result.error()));
    }
    return nlohmann::json(rule);
}

ControlAnswer removeRule(AppController& controller, const std::string& called) {
    const auto app = controller.rules().app(called);
    if (!app) {
        return unknownApp(controller, called);
    }
    if (const auto result = controller.rules().removeRule(app->bundleID); !result) {
        return refusal(text(result.error()));
    }
    return nlohmann::json{{"bundleID", app->bundleID}, {"appName", app->appName}};
}

} // namespace

std::vector<ControlMethod> ruleMethods(AppController& controller) {
    return {{"Rules",
             {},
             "rules",
             [&controller](const Arguments& /*none*/, const ControlReply& reply) {
                 reply(nlohmann::json{{"rules", rules(controller)}});
             }},
            {"SetRule",
             {"application", "action", "display", "restoreLast"},
             "rule",
             [&controller](const Arguments& arguments, const ControlReply& reply) {
                 reply(setRule(controller, arguments));
             }},
            {"RemoveRule",
             {"application"},
             "rule",
             [&controller](const Arguments& arguments, const ControlReply& reply) {
                 reply(removeRule(controller, arguments[0]));
             }}};
}

} // namespace vantrel

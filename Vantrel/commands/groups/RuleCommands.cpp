// The commands for per-application rules.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/terminal/TextColumns.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel {

namespace {

using namespace ControlAnswers;

ControlAnswer unknownApp(AppController& controller, const std::string& called) {
    std::string known;
    for (const auto& app : controller.rules().knownApps()) {
        known += fmt::format("{}{} ({})", known.empty() ? "" : ", ", app.appName, app.bundleID);
    }
    return refused(known.empty()
                       ? trf("There is no known application \"{}\".", called)
                       : trf("There is no known application \"{}\". Known applications: {}.", called, known));
}

// Finds a display among the connected and the remembered ones.
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
std::vector<AppRule> labelledRules(AppController& controller) {
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

void rules(const BusCall& call) {
    call.controller.rules().findRuledWindows(
        [reply = call.reply, rules = labelledRules(call.controller)](const RuleFlow::RuledWindows& windows) {
            auto all = nlohmann::json::array();
            for (const AppRule& rule : rules) {
                all.push_back(rule);
                auto titles = nlohmann::json::array();
                if (const auto open = windows.find(rule.bundleID); open != windows.end()) {
                    for (const DeskWindow& window : open->second) {
                        titles.push_back(window.title);
                    }
                }
                all.back()["windows"] = std::move(titles);
            }
            reply(nlohmann::json{{"rules", std::move(all)}});
        });
}

ControlAnswer apps(const BusCall& call) {
    auto all = nlohmann::json::array();
    for (const AppFacts& facts : call.controller.rules().facts()) {
        all.push_back({{"bundleID", facts.bundleID},
                       {"appName", facts.appName},
                       {"sizes", facts.sizes},
                       {"learned", AppFactsText::summary(facts)}});
        if (facts.reliability) {
            all.back()["reliability"] = *facts.reliability;
        }
    }
    return nlohmann::json{{"apps", std::move(all)}};
}

// `action` is "ignore", "display" or "none"; `displayName` matters only for "display". An empty ID matches no
// display, so such a rule moves nothing and only carries `restoreLast`.
ControlAnswer setRule(const BusCall& call) {
    const auto app = call.controller.rules().app(call[0]);
    if (!app) {
        return unknownApp(call.controller, call[0]);
    }
    AppRule rule{.bundleID = app->bundleID, .appName = app->appName, .action = {}, .restoreLast = {}};
    if (call[1] == "display") {
        const auto found = display(call.controller, call[2]);
        if (!found) {
            return refused(found.error());
        }
        rule.action = AppRule::ForceDisplay{.uuid = found->uuid, .displayName = found->name};
    } else if (call[1] == "none") {
        rule.action = AppRule::ForceDisplay{};
    } else if (call[1] != "ignore") {
        return refused(trf("The action must be \"ignore\", \"display\" or \"none\", not \"{}\".", call[1]));
    }
    if (call[3] == "true") {
        rule.restoreLast = true;
    } else if (call[3] != "false") {
        return refused(tr("The argument restoreLast must be \"true\" or \"false\"."));
    }
    if (call[1] == "none" && !rule.restoreLast) {
        return refused(tr("That rule would do nothing. To remove a rule: vantrelctl rules remove"));
    }
    if (const auto result = call.controller.rules().setRule(rule); !result) {
        return refused(text(result.error()));
    }
    return nlohmann::json(rule);
}

ControlAnswer removeRule(const BusCall& call) {
    const auto app = call.controller.rules().app(call[0]);
    if (!app) {
        return unknownApp(call.controller, call[0]);
    }
    if (const auto result = call.controller.rules().removeRule(app->bundleID); !result) {
        return refused(text(result.error()));
    }
    return nlohmann::json{{"bundleID", app->bundleID}, {"appName", app->appName}};
}

std::string meaning(const AppRule& rule) {
    std::string text;
    if (std::holds_alternative<AppRule::Ignore>(rule.action)) {
        text = tr("is left alone");
    } else if (const auto& forced = std::get<AppRule::ForceDisplay>(rule.action); !forced.uuid.empty()) {
        text = trf("stays on {}", forced.displayName);
    }
    if (rule.restoreLast.value_or(false)) {
        text += text.empty() ? tr("is placed last") : std::string(", ") + tr("is placed last");
    }
    return text;
}

std::string list(const nlohmann::json& reply, const DeskDrawing::Options& drawing) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& each : reply.at("rules")) {
        const auto rule = JsonCoding::value<AppRule>(each);
        const auto windows = static_cast<std::int64_t>(each.value("windows", nlohmann::json::array()).size());
        rows.push_back(
            {rule.appName, meaning(rule),
             windows == 0 ? tr("no window open") : trn("{} window open", "{} windows open", windows),
             rule.bundleID});
    }
    return rows.empty() ? tr("There are no rules. Make one with: vantrelctl rules set APP --ignore\n")
                        : TextColumns::lines(rows, drawing.columns);
}

std::string appList(const nlohmann::json& reply, const DeskDrawing::Options& drawing) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& app : reply.at("apps")) {
        rows.push_back({JsonCoding::required<std::string>(app, "appName"),
                        JsonCoding::required<std::string>(app, "learned"),
                        JsonCoding::required<std::string>(app, "bundleID")});
    }
    return TextColumns::lines(rows, drawing.columns);
}

std::string ruleText(const AppRule& rule) {
    return fmt::format("{} {}.\n", rule.appName, meaning(rule));
}

std::vector<std::string> setArguments(const Typed& typed) {
    const std::string display = typed["--display"];
    const char* const action = typed.has("--ignore") ? "ignore" : display.empty() ? "none" : "display";
    return {typed["APP"], action, display, typed.has("--last") ? "true" : "false"};
}

} // namespace

std::vector<Command> ruleCommands() {
    return {
        {.signature = "Rules() rules",
         .handler = rules,
         .verbs = {{"rules",
                    marked("List the rules that leave applications alone or keep them on a display")},
                   {"rules list", marked("List the rules")}},
         .text = VerbTexts::of<nlohmann::json>(list)},
        {.signature = "Apps() apps",
         .handler = apps,
         .verbs = {{"rules apps", marked("List the applications seen, and what was learned about them")}},
         .text = VerbTexts::of<nlohmann::json>(appList, marked("No application has been seen yet.\n"))},
        {.signature = "SetRule(application, action, display, restoreLast) rule",
         .handler = setRule,
         .verbs = {{"rules set",
                    marked("Set an application's rule, replacing any previous one"),
                    {{"APP", marked("The application's name or ID, as shown by desks and rules"),
                      ValueKind::application},
                     {"--ignore", marked("Neither learn nor move its windows"), ValueKind::flag},
                     {.name = "--display",
                      .help = marked("Keep its windows on this display, by its label (vantrelctl displays)"),
                      .kind = ValueKind::display,
                      .excluded = "--ignore"},
                     {"--last", marked("Place its windows after all others"), ValueKind::flag}},
                    setArguments}},
         .text = VerbTexts::of<AppRule>(ruleText)},
        {.signature = "RemoveRule(application) rule",
         .handler = removeRule,
         .verbs = {{"rules remove",
                    marked("Remove an application's rule"),
                    {{"APP", marked("The application's name or ID"), ValueKind::ruledApplication}}}},
         .text = VerbTexts::sentence(
             marked("Removed the rule for {appName}. To put it back: vantrelctl undelete"))},
    };
}

} // namespace vantrel

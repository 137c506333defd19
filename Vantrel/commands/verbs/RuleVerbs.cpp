#include "Vantrel/commands/verbs/RuleVerbs.h"

#include "Vantrel/commands/terminal/TextColumns.h"
#include "VantrelCore/model/AppRule.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;

std::string meaning(const AppRule& rule) {
    std::string text;
    if (std::holds_alternative<AppRule::Ignore>(rule.action)) {
        text = "is left alone";
    } else if (const auto& forced = std::get<AppRule::ForceDisplay>(rule.action); !forced.uuid.empty()) {
        text = "stays on " + forced.displayName;
    }
    if (rule.restoreLast.value_or(false)) {
        text += text.empty() ? "is placed last" : ", is placed last";
    }
    return text;
}

std::string list(const nlohmann::json& answer, int columns) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& rule : JsonCoding::required<std::vector<AppRule>>(answer, "rules")) {
        rows.push_back({rule.appName, meaning(rule), rule.bundleID});
    }
    return rows.empty() ? "There are no rules. Make one with: vantrelctl rules set APP --ignore\n"
                        : TextColumns::lines(rows, columns);
}

struct Words {
    std::string app;
    std::string display;
    bool isIgnored = false;
    bool isLast = false;
};

ExitCode set(const Words& words, VerbOutput output) {
    const char* const action = words.isIgnored ? "ignore" : words.display.empty() ? "none" : "display";
    return show<AppRule>(
        ControlClient::call("SetRule", {words.app, action, words.display, words.isLast ? "true" : "false"}),
        output, [](const AppRule& rule) { return fmt::format("{} {}.\n", rule.appName, meaning(rule)); });
}

} // namespace

void addRuleVerbs(VerbTable& table, CLI::App& app) {
    const auto& environment = table.environment();
    const auto words = std::make_shared<Words>();
    const auto listAll = [&environment](VerbOutput output) {
        return show<nlohmann::json>(ControlClient::call("Rules"), output, [&](const nlohmann::json& answer) {
            return list(answer, environment.drawing().columns);
        });
    };
    auto& rules = table.add(
        app, "rules", "List the rules that leave applications alone or keep them on a display", listAll);
    table.add(rules, "list", "List the rules", listAll);

    auto& setVerb = table.add(rules, "set", "Set an application's rule, replacing any previous one",
                              [words](VerbOutput output) { return set(*words, output); });
    table
        .takes(ValueKind::application,
               setVerb.add_option("APP", words->app,
                                  "The application's name or ID, as shown by desks and rules"))
        ->required();
    auto* const ignore = setVerb.add_flag("--ignore", words->isIgnored, "Neither learn nor move its windows");
    table
        .takes(ValueKind::display,
               setVerb.add_option("--display", words->display,
                                  "Keep its windows on this display, by its label (vantrelctl displays)"))
        ->excludes(ignore);
    setVerb.add_flag("--last", words->isLast, "Place its windows after all others");

    auto& remove = table.add(rules, "remove", "Remove an application's rule", [words](VerbOutput output) {
        return show<nlohmann::json>(
            ControlClient::call("RemoveRule", {words->app}), output, [](const nlohmann::json& removed) {
                return fmt::format("Removed the rule for {}.\n",
                                   JsonCoding::required<std::string>(removed, "appName"));
            });
    });
    table
        .takes(ValueKind::ruledApplication,
               remove.add_option("APP", words->app, "The application's name or ID"))
        ->required();
}

} // namespace vantrel

#include "Vantrel/interface/workbench/rules/RulesActions.h"

#include "Vantrel/interface/Text.h"

#include <utility>

namespace vantrel {

RulesActions RulesActions::of(AppController& controller, std::function<void(const std::string&)> tell) {
    RulesActions actions;
    actions.facts = [&controller] { return controller.rules().facts(); };
    actions.change = [&controller, tell = std::move(tell)](const RulesContent::Row& row) {
        const auto rule = RulesContent::ruleFor(row);
        const auto result =
            rule ? controller.rules().setRule(*rule) : controller.rules().removeRule(row.bundleID);
        if (!result) {
            tell(text(result.error()));
        }
    };
    actions.find = [&controller](const std::string& called) -> std::expected<AppFacts, std::string> {
        const auto app = controller.rules().app(called);
        if (!app) {
            return std::unexpected(
                trf("No app is called \"{}\". Give the identifier of one that was never open, "
                    "such as org.example.Notes.",
                    called));
        }
        return AppFacts{.bundleID = app->bundleID, .appName = app->appName};
    };
    return actions;
}

} // namespace vantrel

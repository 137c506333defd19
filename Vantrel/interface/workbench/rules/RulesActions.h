// What the tab Rules asks of the program.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/workbench/rules/RulesContent.h"

#include <expected>
#include <functional>
#include <string>
#include <vector>

namespace vantrel {

struct RulesActions {
    std::function<std::vector<AppFacts>()> facts = [] { return std::vector<AppFacts>(); };
    // Stores or removes the rule that the row says.
    std::function<void(const RulesContent::Row&)> change = [](const auto&) {};
    // Finds an application by its name or identifier; the error says that there is none.
    std::function<std::expected<AppFacts, std::string>(const std::string& called)> find = [](const auto&) {
        return std::unexpected(std::string());
    };

    // `tell` says what went wrong.
    [[nodiscard]] static RulesActions of(AppController& controller,
                                         std::function<void(const std::string& problem)> tell);
};

} // namespace vantrel

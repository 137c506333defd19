// The operations of the tab Rules.
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
    // Stores the row's rule, or removes it if the row needs none.
    std::function<void(const RulesContent::Row&)> change = [](const auto&) {};
    // Finds an application by its name or identifier; the error says that there is none.
    std::function<std::expected<AppFacts, std::string>(const std::string& called)> find = [](const auto&) {
        return std::unexpected(std::string());
    };

    // `tell` is called with the sentence for what went wrong.
    [[nodiscard]] static RulesActions of(AppController& controller,
                                         std::function<void(const std::string& problem)> tell);
};

} // namespace vantrel

// What the tab Rules shows, as a value: a row for every application, with its rule and what was learned.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "VantrelCore/model/AppFacts.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct RulesContent {
    enum class Choice : std::uint8_t { putBack, leaveAlone, keepOnDisplay };

    struct Row {
        std::string bundleID;
        std::string appName;
        // "Never smaller than 480 × 300 · 204 put back"; never empty.
        std::string learned;
        // How its open windows stand to the rule: "2 windows open".
        std::string open;
        Choice choice = Choice::putBack;
        // For keepOnDisplay.
        std::string displayUUID{};
        // With its label, also while the display is not connected.
        std::string displayName{};
        bool isPlacedLast = false;

        bool operator==(const Row&) const = default;
    };

    // Those of the current desk, with unique names.
    std::vector<DisplayInfo> displays;
    std::vector<Row> rows;
    // Instead of rows.
    std::string emptyText;

    bool operator==(const RulesContent&) const = default;

    // Only the applications whose names contain `search`, ignoring case. `facts` as returned by
    // RuleFlow::facts(); `added` are applications that the user wants to give a rule.
    [[nodiscard]] static RulesContent of(const PublishedState& state, std::vector<AppFacts> facts,
                                         const std::vector<AppFacts>& added, const std::string& search);

    // The rule for what the row says; none if it says nothing that needs one.
    [[nodiscard]] static std::optional<AppRule> ruleFor(const Row& row);
};

} // namespace vantrel

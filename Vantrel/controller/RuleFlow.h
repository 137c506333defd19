// The user's rules per application: the stored rules, and the applications that can have rules.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/ControllerStores.h"
#include "VantrelCore/model/AppFacts.h"
#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/DeskSnapshot.h"

#include <expected>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

enum class RuleProblem : std::uint8_t { writeFailed, notFound };

[[nodiscard]] std::string text(RuleProblem problem);

// Every capture and restore reads the rules afresh, so a change takes effect from the next one on.
class RuleFlow {
public:
    struct KnownApp {
        std::string bundleID;
        std::string appName;

        bool operator==(const KnownApp&) const = default;
    };

    // Publishes the stored rules. The stores outlive this object.
    RuleFlow(ControllerContext& context, ControllerStores& stores);

    [[nodiscard]] std::vector<AppRule> rules() { return m_context.store.rules(); }
    // Publishes the rules after the store has changed.
    void showStored();

    std::expected<void, RuleProblem> setRule(const AppRule& rule);
    std::expected<void, RuleProblem> removeRule(const std::string& bundleID);

    // What was learned about the known applications, sorted by name. Which of them are running is known while
    // live windows are published.
    [[nodiscard]] std::vector<AppFacts> facts();

    // The open windows of each application that has a rule. `done` is called once, on the main thread, after
    // a capture in the background; without windows if that is not possible now.
    using RuledWindows = std::map<std::string, std::vector<DeskWindow>>;
    void findRuledWindows(std::function<void(const RuledWindows&)> done);

    // Applications that appear in stored data, sorted by name.
    [[nodiscard]] std::vector<KnownApp> knownApps();
    // Finds an application by identifier or name, ignoring case. Also finds an installed application that was
    // never seen, by its identifier only. None when it is unknown.
    [[nodiscard]] std::optional<KnownApp> app(std::string_view called);

private:
    void rulesChanged();

    ControllerContext& m_context;
    ControllerStores& m_stores;
};

} // namespace vantrel

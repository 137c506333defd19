// The user's rules per application: the stored rules, and the applications that can have rules.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "VantrelCore/model/AppRule.h"

#include <expected>
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

    explicit RuleFlow(ControllerContext& context) : m_context(context) {}

    [[nodiscard]] std::vector<AppRule> rules() { return m_context.store.rules(); }

    std::expected<void, RuleProblem> setRule(const AppRule& rule);
    std::expected<void, RuleProblem> removeRule(const std::string& bundleID);

    // Applications that appear in stored data, sorted by name.
    [[nodiscard]] std::vector<KnownApp> knownApps();
    // Finds an application by identifier or name, ignoring case. Also finds an installed application that was
    // never seen, by its identifier only. None when it is unknown.
    [[nodiscard]] std::optional<KnownApp> app(std::string_view called);

private:
    ControllerContext& m_context;
};

} // namespace vantrel

// The user's rules per application: what is stored, and which applications rules can be made for.
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

// Rules are read afresh by every capture and every restore, so a change holds from the next one on.
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

    // Applications of which something is stored, by name.
    [[nodiscard]] std::vector<KnownApp> knownApps();
    // The application that a user calls so, by identifier or by name, in whatever case; also one that is
    // installed but was never seen, by its identifier. None when nobody knows it.
    [[nodiscard]] std::optional<KnownApp> app(std::string_view called);

private:
    ControllerContext& m_context;
};

} // namespace vantrel

// A user's rule for one application: leave its windows alone, keep them on one display, restore them last.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <variant>

namespace vantrel {

struct AppRule {
    // Its windows are neither learned nor restored.
    struct Ignore {
        bool operator==(const Ignore&) const = default;
    };

    // Its windows belong on the display with this `DisplayInfo::uuid`.
    struct ForceDisplay {
        std::string uuid;
        // Shown to the user even while the display is disconnected.
        std::string displayName;

        bool operator==(const ForceDisplay&) const = default;
    };

    using Action = std::variant<Ignore, ForceDisplay>;

    std::string bundleID;
    std::string appName;
    Action action;
    // Whether its windows are placed after all others; absent means false.
    std::optional<bool> restoreLast;

    bool operator==(const AppRule&) const = default;
};

// The action is {"kind": "ignore"} or {"kind": "forceDisplay", "uuid": …, "displayName": …}; any other kind
// fails to decode.
void to_json(nlohmann::json& json, const AppRule& rule);
void from_json(const nlohmann::json& json, AppRule& rule);

} // namespace vantrel

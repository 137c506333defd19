// What was learned about an application, for people: which sizes it takes, and how its restores ended.
#pragma once

#include "VantrelCore/model/AppReliability.h"
#include "VantrelCore/model/AppSizeBehavior.h"

#include <optional>
#include <string>

namespace vantrel {

struct AppFacts {
    std::string bundleID;
    std::string appName;
    AppSizeBehavior::Classification sizes = AppSizeBehavior::Flexible{};
    // None if no restore was recorded.
    std::optional<AppReliability> reliability{};
    bool isRunning = false;

    bool operator==(const AppFacts&) const = default;
};

namespace AppFactsText {

// "Keeps one fixed size", "Never narrower than 480 points"; empty for an application that takes any size.
[[nodiscard]] std::string sizes(const AppSizeBehavior::Classification& sizes);

// The sizes, then how its restores ended: "Never narrower than 480 points · 204 put back".
[[nodiscard]] std::string summary(const AppFacts& facts);

} // namespace AppFactsText

} // namespace vantrel

// The state of trial and license, as sent over the session bus.
#pragma once

#include "VantrelCore/model/Entitlement.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace vantrel {

struct LicenseMessage {
    bool entitled = false;
    // "notNeeded", "licensed", "trial", "trialOver" or "refused".
    std::string state;
    // For people.
    std::string reason;
    // Only with trial and trialOver.
    std::optional<Date> trialEndsAt;
    // Only with trial.
    std::optional<std::int64_t> trialDaysLeft;
    // Only with licensed, and with a license that has expired or was not renewed.
    std::optional<std::string> id;
    std::optional<std::string> plan;
    std::optional<std::string> holder;
    std::optional<Date> expiresAt;
    std::optional<Date> leasedUntil;

    bool operator==(const LicenseMessage&) const = default;

    [[nodiscard]] static LicenseMessage of(const Entitlement& entitlement);
};

void to_json(nlohmann::json& json, const LicenseMessage& message);
void from_json(const nlohmann::json& json, LicenseMessage& message);

} // namespace vantrel

// The state of trial and license, as sent over the session bus.
#pragma once

#include "Vantrel/commands/MessageFields.h"
#include "VantrelCore/model/Entitlement.h"

#include <cstdint>
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

    template <typename Self, typename Field>
    static void fields(Self& self, Field&& field) {
        field("entitled", self.entitled);
        field("state", self.state);
        field("reason", self.reason);
        field("trialEndsAt", self.trialEndsAt);
        field("trialDaysLeft", self.trialDaysLeft);
        field("id", self.id);
        field("plan", self.plan);
        field("holder", self.holder);
        field("expiresAt", self.expiresAt);
        field("leasedUntil", self.leasedUntil);
    }

    [[nodiscard]] static LicenseMessage of(const Entitlement& entitlement);
};

} // namespace vantrel

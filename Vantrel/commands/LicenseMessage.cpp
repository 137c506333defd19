#include "Vantrel/commands/LicenseMessage.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

using namespace JsonCoding;

namespace {

const char* stateName(Entitlement::Kind kind) {
    switch (kind) {
    case Entitlement::Kind::notNeeded:
        return "notNeeded";
    case Entitlement::Kind::licensed:
        return "licensed";
    case Entitlement::Kind::trial:
        return "trial";
    case Entitlement::Kind::trialOver:
        return "trialOver";
    case Entitlement::Kind::refused:
        return "refused";
    }
    return "";
}

} // namespace

LicenseMessage LicenseMessage::of(const Entitlement& entitlement) {
    LicenseMessage message{.entitled = entitlement.isEntitled(),
                           .state = stateName(entitlement.kind),
                           .reason = entitlement.reason,
                           .trialEndsAt = entitlement.trialEndsAt,
                           .trialDaysLeft = entitlement.trialDaysLeft,
                           .id = {},
                           .plan = {},
                           .holder = {},
                           .expiresAt = {},
                           .leasedUntil = {}};
    if (const auto& license = entitlement.license) {
        message.id = license->id;
        message.plan = license->plan;
        message.holder = license->holder;
        message.expiresAt = license->expiresAt;
        message.leasedUntil = license->leasedUntil;
    }
    return message;
}

void to_json(nlohmann::json& json, const LicenseMessage& message) {
    json = {{"entitled", message.entitled}, {"state", message.state}, {"reason", message.reason}};
    put(json, "trialEndsAt", message.trialEndsAt);
    put(json, "trialDaysLeft", message.trialDaysLeft);
    put(json, "id", message.id);
    put(json, "plan", message.plan);
    put(json, "holder", message.holder);
    put(json, "expiresAt", message.expiresAt);
    put(json, "leasedUntil", message.leasedUntil);
}

void from_json(const nlohmann::json& json, LicenseMessage& message) {
    message.entitled = required<bool>(json, "entitled");
    message.state = required<std::string>(json, "state");
    message.reason = required<std::string>(json, "reason");
    message.trialEndsAt = optional<Date>(json, "trialEndsAt");
    message.trialDaysLeft = optional<std::int64_t>(json, "trialDaysLeft");
    message.id = optional<std::string>(json, "id");
    message.plan = optional<std::string>(json, "plan");
    message.holder = optional<std::string>(json, "holder");
    message.expiresAt = optional<Date>(json, "expiresAt");
    message.leasedUntil = optional<Date>(json, "leasedUntil");
}

} // namespace vantrel

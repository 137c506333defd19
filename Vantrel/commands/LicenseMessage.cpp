#include "Vantrel/commands/LicenseMessage.h"

namespace vantrel {

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
    LicenseMessage message;
    message.entitled = entitlement.isEntitled();
    message.state = stateName(entitlement.kind);
    message.reason = entitlement.reason;
    message.trialEndsAt = entitlement.trialEndsAt;
    message.trialDaysLeft = entitlement.trialDaysLeft;
    if (const auto& license = entitlement.license) {
        message.id = license->id;
        message.plan = license->plan;
        message.holder = license->holder;
        message.expiresAt = license->expiresAt;
        message.leasedUntil = license->leasedUntil;
    }
    return message;
}

} // namespace vantrel

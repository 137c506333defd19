// Decides whether to accept a licence from the server, and updates the record.
#pragma once

#include "VantrelCore/licensing/LicenseAnswers.h"
#include "VantrelCore/licensing/LicenseRecord.h"

#include <expected>
#include <optional>
#include <string>

namespace vantrel::LicenseAcceptance {

struct Request {
    // From LicensedMachine.
    std::string machine;
    LicenseDocuments::PublicKey key{};
    // The nonce that the request asked the server to sign. A reply that carries it is fresh, so its date is
    // the current time; any other reply may be a replayed old one.
    std::string nonce;
    // The licence to renew; none for an activation.
    std::optional<License> held{};
    Date now;
};

struct Accepted {
    LicenseRecord record;
    License license;
};

[[nodiscard]] std::expected<Accepted, LicenseProblem>
accept(const LicenseRecord& record, const LicenseDocument& document, const Request& request);

struct Renewal {
    // The new state; unchanged unless the server renewed or withdrew the licence.
    LicenseRecord record;
    License license;
    bool isRenewed = false;
    // For the log.
    std::string sentence{};
};

// `request.held` must be set.
[[nodiscard]] Renewal renewal(const LicenseRecord& record, const HttpResult& result, const Request& request);

} // namespace vantrel::LicenseAcceptance

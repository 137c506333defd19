// Decides whether a licence that the server sent is taken over, and what the record says then.
#pragma once

#include "VantrelCore/licensing/LicenseAnswers.h"
#include "VantrelCore/licensing/LicenseRecord.h"

#include <expected>
#include <optional>
#include <string>

namespace vantrel::LicenseAcceptance {

struct Asked {
    // LicensedMachine's.
    std::string machine;
    LicenseDocuments::PublicKey key{};
    // What the request asked the server to sign. An answer that carries it was made just now, so its date is
    // the time; other answers may be old ones, played again.
    std::string nonce;
    // The licence that is to be renewed; none for an activation.
    std::optional<License> held{};
    Date now;
};

struct Accepted {
    LicenseRecord record;
    License license;
};

[[nodiscard]] std::expected<Accepted, LicenseProblem>
accept(const LicenseRecord& record, const LicenseDocument& document, const Asked& asked);

struct Renewal {
    // As they are to be from now on; unchanged unless the server renewed or withdrew the licence.
    LicenseRecord record;
    License license;
    bool isRenewed = false;
    // For the log.
    std::string sentence{};
};

// `asked.held` is set.
[[nodiscard]] Renewal renewal(const LicenseRecord& record, const HttpResult& result, const Asked& asked);

} // namespace vantrel::LicenseAcceptance

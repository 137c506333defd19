#include "VantrelCore/licensing/LicenseAcceptance.h"

#include "VantrelCore/licensing/LicenseDecision.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel::LicenseAcceptance {

namespace {

std::optional<LicenseProblem> problemWith(const LicenseRecord& record, const License& license,
                                          const Asked& asked) {
    if (const auto problem = LicenseDocuments::problemWith(license, asked.machine, record.deactivated)) {
        return problem;
    }
    if (license.nonce && license.nonce != asked.nonce) {
        return LicenseProblem::otherRequest;
    }
    if (!asked.held) {
        return std::nullopt;
    }
    if (license.id != asked.held->id) {
        return LicenseProblem::otherLicense;
    }
    // The server's clock may have been ahead earlier and be right now; only a fresh reply proves that.
    return !license.nonce && license.issuedAt < asked.held->issuedAt ? std::optional(LicenseProblem::older)
                                                                     : std::nullopt;
}

} // namespace

std::expected<Accepted, LicenseProblem> accept(const LicenseRecord& record, const LicenseDocument& document,
                                               const Asked& asked) {
    const auto license = LicenseDocuments::verify(document, asked.key);
    if (!license) {
        return std::unexpected(license.error());
    }
    if (const auto problem = problemWith(record, *license, asked)) {
        return std::unexpected(*problem);
    }
    Accepted accepted{.record = record, .license = *license};
    accepted.record.document = document;
    accepted.record.problem.reset();
    accepted.record.withdrawn.reset();
    if (license->nonce) {
        // Forget a clock that was once ahead.
        accepted.record.latestSeen = license->issuedAt;
    }
    if (!LicenseDecision::entitlement(accepted.record, *license, asked.now).isEntitled()) {
        const Date now = LicenseDecision::effectiveNow(accepted.record, *license, asked.now);
        return std::unexpected(license->expiresAt && now >= *license->expiresAt ? LicenseProblem::expired
                                                                                : LicenseProblem::clockAhead);
    }
    return accepted;
}

Renewal renewal(const LicenseRecord& record, const HttpResult& result, const Asked& asked) {
    Renewal outcome{.record = record, .license = *asked.held};
    if (LicenseAnswers::isWithdrawn(result)) {
        outcome.record.withdrawn = asked.held->id;
        outcome.sentence = "the vendor's server no longer renews this license";
        return outcome;
    }
    const auto document = LicenseAnswers::activated(result);
    if (!document) {
        outcome.sentence = "not renewed: " + document.error();
        return outcome;
    }
    auto accepted = accept(record, *document, asked);
    if (!accepted) {
        outcome.sentence = fmt::format("not renewed: the server's reply was not accepted. {}",
                                       LicenseProblems::sentence(accepted.error()));
        return outcome;
    }
    outcome.record = std::move(accepted->record);
    outcome.license = std::move(accepted->license);
    outcome.isRenewed = true;
    outcome.sentence = outcome.license.leasedUntil
                           ? fmt::format("renewed until {}", iso8601Text(*outcome.license.leasedUntil))
                           : "checked by the vendor's server";
    return outcome;
}

} // namespace vantrel::LicenseAcceptance

#include "VantrelCore/licensing/LicenseAcceptance.h"

#include "VantrelCore/licensing/LicenseDecision.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel::LicenseAcceptance {

namespace {

std::optional<LicenseProblem> problemWith(const LicenseRecord& record, const License& license,
                                          const Request& request) {
    if (const auto problem = LicenseDocuments::problemWith(license, request.machine, record.deactivated)) {
        return problem;
    }
    if (license.nonce && license.nonce != request.nonce) {
        return LicenseProblem::otherRequest;
    }
    if (!request.held) {
        return std::nullopt;
    }
    if (license.id != request.held->id) {
        return LicenseProblem::otherLicense;
    }
    // The server's clock may have been ahead earlier and be right now; only a fresh reply proves that.
    return !license.nonce && license.issuedAt < request.held->issuedAt ? std::optional(LicenseProblem::older)
                                                                       : std::nullopt;
}

} // namespace

std::expected<Accepted, LicenseProblem> accept(const LicenseRecord& record, const LicenseDocument& document,
                                               const Request& request) {
    const auto license = LicenseDocuments::verify(document, request.key);
    if (!license) {
        return std::unexpected(license.error());
    }
    if (const auto problem = problemWith(record, *license, request)) {
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
    if (!LicenseDecision::entitlement(accepted.record, *license, request.now).isEntitled()) {
        const Date now = LicenseDecision::effectiveNow(accepted.record, *license, request.now);
        return std::unexpected(license->expiresAt && now >= *license->expiresAt ? LicenseProblem::expired
                                                                                : LicenseProblem::clockAhead);
    }
    return accepted;
}

Renewal renewal(const LicenseRecord& record, const HttpResult& result, const Request& request) {
    Renewal outcome{.record = record, .license = *request.held};
    if (LicenseAnswers::isWithdrawn(result)) {
        outcome.record.withdrawn = request.held->id;
        outcome.sentence = "the vendor's server no longer renews this license";
        return outcome;
    }
    const auto document = LicenseAnswers::activated(result);
    if (!document) {
        outcome.sentence = "not renewed: " + document.error();
        return outcome;
    }
    auto accepted = accept(record, *document, request);
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

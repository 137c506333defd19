#include "VantrelCore/licensing/LicenseDecision.h"

#include "VantrelCore/licensing/LicenseLease.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::LicenseDecision {

namespace {

std::string dayText(Date date) {
    return iso8601Text(date).substr(0, 10);
}

bool isIntact(const FileReading& file) {
    return file && file->has_value();
}

std::optional<LicenseProblem> problemOf(const FileReading& file) {
    return file && !file->has_value() ? std::optional(file->error()) : std::nullopt;
}

// A trial whose record is missing counts from the earliest known use.
LicenseRecord newRecord(const AtStart& at) {
    const auto earliest = at.earliestUse ? at.earliestUse() : std::nullopt;
    return {.trialStartedAt = std::min(at.now, earliest.value_or(at.now)), .latestSeen = at.now};
}

LicenseRecord knownRecord(const AtStart& at) {
    if (isIntact(at.main)) {
        return isIntact(at.copy) ? LicenseRecords::merged(**at.main, **at.copy) : **at.main;
    }
    return isIntact(at.copy) ? **at.copy : newRecord(at);
}

std::string sentence(const License& license, bool isWithdrawn, const LicenseLease::Standing& standing) {
    using LicenseLease::Term;
    if (standing.term == Term::ended && isWithdrawn) {
        return trf("The license ended on {}: the vendor's server no longer renews it. If that is a mistake, "
                   "activate your key again.",
                   dayText(*standing.until));
    }
    if (standing.term == Term::ended) {
        return trf("The license ended on {} because it was not renewed. It becomes valid again as soon as "
                   "this computer reaches the vendor's server. If this computer's clock is wrong, set it "
                   "right.",
                   dayText(*standing.until));
    }
    if (isWithdrawn) {
        return trf(
            "The license for this computer ends on {}: the vendor's server no longer renews it. If that "
            "is a mistake, activate your key again.",
            dayText(*standing.until));
    }
    std::string text = license.expiresAt
                           ? trf("Licensed for this computer until {}.", dayText(*license.expiresAt))
                           : tr("Licensed for this computer.");
    if (standing.term == Term::inGrace) {
        text += " ";
        text += trf("The license was due for renewal by {}: connect this computer to the internet before {}.",
                    dayText(*license.leasedUntil), dayText(*standing.until));
    }
    return text;
}

// The entitlement of a licence that has not expired.
Entitlement leased(const License& license, bool isWithdrawn, Date now) {
    const auto standing = LicenseLease::standing(license, isWithdrawn, now);
    Entitlement result{.kind = Entitlement::Kind::licensed,
                       .reason = sentence(license, isWithdrawn, standing),
                       .license = license,
                       .changesAt = license.expiresAt};
    if (standing.term == LicenseLease::Term::ended) {
        result.kind = Entitlement::Kind::refused;
        result.changesAt.reset();
    } else if (standing.until) {
        result.changesAt = std::min(*standing.until, license.expiresAt.value_or(*standing.until));
    }
    return result;
}

} // namespace

Start start(const AtStart& at) {
    Start result{.record = knownRecord(at)};
    LicenseRecord& record = result.record;
    result.mayWriteMain = problemOf(at.main) != LicenseProblem::unreadable;
    result.mayWriteCopy = problemOf(at.copy) != LicenseProblem::unreadable;
    result.keepsMainAside = problemOf(at.main) && result.mayWriteMain;
    result.keepsCopyAside = problemOf(at.copy) && result.mayWriteCopy;
    if (!isIntact(at.main)) {
        // A broken copy is repaired from the file; without the file, the copy's problem counts.
        record.problem = problemOf(at.main) ? problemOf(at.main) : problemOf(at.copy);
    }
    if (record.document) {
        const auto license = LicenseDocuments::verify(*record.document, at.key);
        const auto problem = license ? LicenseDocuments::problemWith(*license, at.machine, record.deactivated)
                                     : std::optional(license.error());
        if (problem) {
            record.problem = problem;
            record.document.reset();
            result.keepsMainAside = true;
        } else {
            record.problem.reset();
            result.license = *license;
        }
    }
    record.latestSeen = effectiveNow(record, result.license, at.now);
    return result;
}

Date effectiveNow(const LicenseRecord& record, const std::optional<License>& license, Date now) {
    const Date latest = std::max(now, record.latestSeen);
    return license ? std::max(latest, license->issuedAt) : latest;
}

Entitlement entitlement(const LicenseRecord& record, const std::optional<License>& license, Date now) {
    using Kind = Entitlement::Kind;
    const Date present = effectiveNow(record, license, now);
    if (license && license->expiresAt && present >= *license->expiresAt) {
        return {.kind = Kind::refused,
                .reason = trf("The license expired on {}.", dayText(*license->expiresAt)),
                .license = license};
    }
    if (license) {
        return leased(*license, record.withdrawn == license->id, present);
    }
    if (record.problem) {
        return {.kind = Kind::refused,
                .reason = LicenseProblems::sentence(*record.problem) + " " +
                          (record.problem == LicenseProblem::unreadable
                               ? tr("Look at its permissions.")
                               : tr("It is kept as license.json.corrupt. Activate your key again."))};
    }
    const Date end = record.trialStartedAt + trialLength;
    if (present >= end) {
        return {.kind = Kind::trialOver,
                .reason =
                    tr("The trial has ended. Your saved data is kept; a license brings back restoring and "
                       "learning."),
                .trialEndsAt = end};
    }
    const auto days = std::chrono::ceil<std::chrono::days>(end - present).count();
    return {.kind = Kind::trial,
            .reason = trn("The trial ends in {} day.", "The trial ends in {} days.", days),
            .trialEndsAt = end,
            .trialDaysLeft = days,
            .changesAt = end};
}

Entitlement notNeeded() {
    return {.kind = Entitlement::Kind::notNeeded,
            .reason = tr("This build contains no vendor key and needs no license.")};
}

} // namespace vantrel::LicenseDecision

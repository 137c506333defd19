// Decides whether the program may run: from the files at the start, and from the time thereafter.
#pragma once

#include "VantrelCore/licensing/LicenseRecord.h"
#include "VantrelCore/model/Entitlement.h"

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::LicenseDecision {

inline constexpr std::chrono::days trialLength{14};

// None: there is no file.
using FileReading = std::optional<std::expected<LicenseRecord, LicenseProblem>>;

struct AtStart {
    // "license.json", and its copy kept elsewhere.
    FileReading main;
    FileReading copy;
    // The earliest date in the program's stores; called only if there is no record. A trial whose record is
    // missing counts from then.
    std::function<std::optional<Date>()> earliestUse;
    // From LicensedMachine; empty on a computer without an identity.
    std::string machine;
    LicenseDocuments::PublicKey key{};
    Date now;
};

struct Start {
    LicenseRecord record;
    // The valid licence, or one that was valid until it expired.
    std::optional<License> license{};
    // Set the file aside before writing it again.
    bool keepsMainAside = false;
    bool keepsCopyAside = false;
    // False: the file could not be read and must not be overwritten.
    bool mayWriteMain = true;
    bool mayWriteCopy = true;
};

[[nodiscard]] Start start(const AtStart& at);

// The time used for decisions; a clock set back has no effect.
[[nodiscard]] Date effectiveNow(const LicenseRecord& record, const std::optional<License>& license, Date now);

[[nodiscard]] Entitlement entitlement(const LicenseRecord& record, const std::optional<License>& license,
                                      Date now);

// The entitlement of a build without a vendor key.
[[nodiscard]] Entitlement notNeeded();

} // namespace vantrel::LicenseDecision

// Decides whether the program may run: from the files at the start, and from the time ever after.
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
    // "license.json", and the copy that is kept elsewhere.
    FileReading main;
    FileReading copy;
    // The date of the oldest thing that the program remembers about the user's desks; asked when there is no
    // record. A trial that was begun and whose record is missing counts from then.
    std::function<std::optional<Date>()> earliestUse;
    // LicensedMachine's; empty on a computer without an identity.
    std::string machine;
    LicenseDocuments::PublicKey key{};
    Date now;
};

struct Start {
    LicenseRecord record;
    // The licence that holds, or held until it expired.
    std::optional<License> license{};
    // The file is to be kept aside before it is written again.
    bool keepsMainAside = false;
    bool keepsCopyAside = false;
    // What cannot be read is not written over.
    bool mayWriteMain = true;
    bool mayWriteCopy = true;
};

[[nodiscard]] Start start(const AtStart& at);

// The time that counts: clocks that go back change nothing.
[[nodiscard]] Date effectiveNow(const LicenseRecord& record, const std::optional<License>& license, Date now);

[[nodiscard]] Entitlement entitlement(const LicenseRecord& record, const std::optional<License>& license,
                                      Date now);

// The entitlement of a build without a vendor's key.
[[nodiscard]] Entitlement notNeeded();

} // namespace vantrel::LicenseDecision

// The persistent state of trial and licence, and its file: a record with a seal that reveals records changed
// or copied from another computer. The seal is not secret; the vendor's signature inside is what resists
// forgery.
#pragma once

#include "VantrelCore/licensing/LicenseDocument.h"
#include "VantrelCore/licensing/LicenseProblem.h"
#include "VantrelCore/model/Date.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

struct LicenseRecord {
    Date trialStartedAt;
    // The latest time ever seen; for the trial, time never goes back.
    Date latestSeen;
    // The ids of licences returned from this computer.
    std::vector<std::string> deactivated{};
    std::optional<LicenseDocument> document{};
    // The id of the licence that the vendor's server no longer renews.
    std::optional<std::string> withdrawn{};
    // Why the previous licence was rejected; kept until the next activation.
    std::optional<LicenseProblem> problem{};

    bool operator==(const LicenseRecord&) const = default;
};

namespace LicenseRecords {

// The file's content; `machine` is from LicensedMachine. Dates lose fractions of a second.
[[nodiscard]] std::string encode(const LicenseRecord& record, std::string_view machine);

// `damaged` or `changed` if encode() did not produce it.
[[nodiscard]] std::expected<LicenseRecord, LicenseProblem> decode(std::string_view text,
                                                                  std::string_view machine);

// Combines both so that tampering gains nothing: the earlier start, the later time, everything that either
// lists as deactivated or withdrawn. Document and problem come from `main`.
[[nodiscard]] LicenseRecord merged(const LicenseRecord& main, const LicenseRecord& copy);

// The part kept in the copy.
[[nodiscard]] LicenseRecord forCopy(const LicenseRecord& record);

} // namespace LicenseRecords

} // namespace vantrel

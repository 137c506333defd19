// What is kept about trial and licence from one start to the next, and its file: a record with a seal, which
// tells a record that somebody changed or brought along from another computer. The seal is no secret; what
// has to withstand a forger is the vendor's signature inside.
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
    // The latest time that was ever seen: time does not go back for the trial.
    Date latestSeen;
    // The ids of licences that were given back here.
    std::vector<std::string> deactivated{};
    std::optional<LicenseDocument> document{};
    // The id of the licence that the vendor's server said it does not renew any more.
    std::optional<std::string> withdrawn{};
    // Why a licence that was here is not any more; until the next activation.
    std::optional<LicenseProblem> problem{};

    bool operator==(const LicenseRecord&) const = default;
};

namespace LicenseRecords {

// The file's text; `machine` is LicensedMachine's. Dates lose their fractions of a second.
[[nodiscard]] std::string encode(const LicenseRecord& record, std::string_view machine);

// `damaged` or `changed` when it is not what encode() made.
[[nodiscard]] std::expected<LicenseRecord, LicenseProblem> decode(std::string_view text,
                                                                  std::string_view machine);

// What both know of, of each the word that favours nobody who tampers: the earlier start, the later time,
// what either knows to be deactivated or withdrawn. Document and problem are those of `main`.
[[nodiscard]] LicenseRecord merged(const LicenseRecord& main, const LicenseRecord& copy);

// What the copy keeps of it.
[[nodiscard]] LicenseRecord forCopy(const LicenseRecord& record);

} // namespace LicenseRecords

} // namespace vantrel

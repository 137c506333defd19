// What can be wrong with a stored or received licence.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

enum class LicenseProblem : std::uint8_t {
    // The file has no complete record.
    damaged,
    // The record is not as it was written on this computer.
    changed,
    unreadable,
    // The document is not in the expected format.
    malformed,
    unknownAlgorithm,
    badSignature,
    otherProduct,
    otherMachine,
    deactivated,
    expired,
    // The reply belongs to another request.
    otherRequest,
    // The renewal is for another licence.
    otherLicense,
    // The renewal is older than the stored licence.
    older,
    // By this computer's clock its lease ended long ago.
    clockAhead,
};

namespace LicenseProblems {

// A sentence for the user.
[[nodiscard]] std::string sentence(LicenseProblem problem);

// The name used in files: "badSignature".
[[nodiscard]] std::string_view name(LicenseProblem problem);
[[nodiscard]] std::optional<LicenseProblem> named(std::string_view name);

} // namespace LicenseProblems

} // namespace vantrel

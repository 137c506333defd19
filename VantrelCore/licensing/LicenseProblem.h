// What can be wrong with a licence that is stored or was received.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

enum class LicenseProblem : std::uint8_t {
    // The file holds no record, or not a whole one.
    damaged,
    // The record is not the one that was written on this computer.
    changed,
    unreadable,
    // The document has another form than it should.
    malformed,
    unknownAlgorithm,
    badSignature,
    otherProduct,
    otherMachine,
    deactivated,
    expired,
    // The answer belongs to another request.
    otherRequest,
    // The renewal is of another licence.
    otherLicense,
    // The renewal is older than what is here.
    older,
    // By this computer's clock its lease ended long ago.
    clockAhead,
};

namespace LicenseProblems {

// For people, a sentence.
[[nodiscard]] std::string sentence(LicenseProblem problem);

// As it is written to a file: "badSignature".
[[nodiscard]] std::string_view name(LicenseProblem problem);
[[nodiscard]] std::optional<LicenseProblem> named(std::string_view name);

} // namespace LicenseProblems

} // namespace vantrel

// How long a licence holds between two renewals. The vendor signs it for a month at a time and the program
// renews it early, so a server that is down for weeks takes nothing from anybody.
#pragma once

#include "VantrelCore/model/License.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace vantrel::LicenseLease {

// After the lease's end, as long as the server has not said that the licence was withdrawn.
inline constexpr std::chrono::days grace{60};
// What a licence from before leases still has from its issue when the server withdraws it.
inline constexpr std::chrono::days usualLength{30};

enum class Term : std::uint8_t { endless, leased, inGrace, ended };

struct Standing {
    Term term = Term::endless;
    // When the term ends, or with `ended`, when it did; none with `endless`.
    std::optional<Date> until{};
};

[[nodiscard]] Standing standing(const License& license, bool isWithdrawn, Date now);

// Whether the server is to be asked for a renewal: from a quarter of the lease on, so that three weeks are
// left in which it may be out of reach.
[[nodiscard]] bool isDue(const License& license, Date now);

// How long to wait after so many attempts in a row that brought no renewal; none of them: after a renewal.
[[nodiscard]] double secondsToNextAttempt(int failures, bool isLockedOut);

} // namespace vantrel::LicenseLease

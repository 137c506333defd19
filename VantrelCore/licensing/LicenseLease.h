// How long a licence is valid between renewals. The vendor signs it for a month at a time and the program
// renews it early, so a server outage of weeks affects nobody.
#pragma once

#include "VantrelCore/model/License.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace vantrel::LicenseLease {

// Extra time after the lease ends, unless the server has withdrawn the licence.
inline constexpr std::chrono::days grace{60};
// How long a licence without a lease is valid, counted from its issue, once the server withdraws it.
inline constexpr std::chrono::days usualLength{30};

enum class Term : std::uint8_t { endless, leased, inGrace, ended };

struct Standing {
    Term term = Term::endless;
    // When the term ends or, if `ended`, ended; none if `endless`.
    std::optional<Date> until{};
};

[[nodiscard]] Standing standing(const License& license, bool isWithdrawn, Date now);

// Whether to request a renewal: after a quarter of the lease, which leaves three weeks in which the server
// may be unreachable.
[[nodiscard]] bool isDue(const License& license, Date now);

// The wait after `failures` consecutive failed attempts; 0 means after a renewal.
[[nodiscard]] double secondsToNextAttempt(int failures, bool isLockedOut);

} // namespace vantrel::LicenseLease

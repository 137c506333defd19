#include "VantrelCore/licensing/LicenseLease.h"

#include <algorithm>

namespace vantrel::LicenseLease {

Standing standing(const License& license, bool isWithdrawn, Date now) {
    if (!license.leasedUntil && !isWithdrawn) {
        return {};
    }
    const Date end = license.leasedUntil.value_or(license.issuedAt + usualLength);
    if (now < end) {
        return {.term = Term::leased, .until = end};
    }
    if (isWithdrawn) {
        return {.term = Term::ended, .until = end};
    }
    return {.term = now < end + grace ? Term::inGrace : Term::ended, .until = end + grace};
}

bool isDue(const License& license, Date now) {
    return !license.leasedUntil || now >= license.issuedAt + (*license.leasedUntil - license.issuedAt) / 4;
}

double secondsToNextAttempt(int failures, bool isLockedOut) {
    constexpr double shortest = 15 * 60.0;
    constexpr double day = 24 * 3600.0;
    if (failures == 0) {
        return day;
    }
    constexpr int mostDoublings = 7;
    // A user who is locked out should not wait a day once the server is back.
    return std::min(isLockedOut ? 3600.0 : day, shortest * (1 << std::min(failures - 1, mostDoublings)));
}

} // namespace vantrel::LicenseLease

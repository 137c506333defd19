#include "VantrelCore/updates/UpdateOffer.h"

#include "VantrelCore/text/SemVer.h"
#include "VantrelCore/text/Translation.h"

namespace vantrel::UpdateOffer {

namespace {

// In seconds.
constexpr double shortestPause = 3600;

} // namespace

bool isDue(const std::optional<Date>& lastCheck, Date now) {
    if (!lastCheck) {
        return true;
    }
    const double ago = secondsBetween(*lastCheck, now);
    return ago < 0 || ago >= shortestPause;
}

std::optional<std::string> latestAvailable(const std::string& latest, std::string_view current) {
    return latest.size() <= maxVersionLength && SemVer::isNewer(latest, current) ? std::optional(latest)
                                                                                 : std::nullopt;
}

std::string caption(std::string_view version) {
    return trf("Update available · v{}", version);
}

} // namespace vantrel::UpdateOffer

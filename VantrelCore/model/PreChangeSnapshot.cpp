#include "VantrelCore/model/PreChangeSnapshot.h"

namespace vantrel::PreChangeSnapshot {

bool shouldAdopt(const std::optional<Candidate>& candidate, Date now, const std::string& currentConfigID,
                 double maxAge) {
    return candidate && candidate->layout.configID == currentConfigID &&
           secondsBetween(candidate->takenAt, now) <= maxAge && !candidate->layout.windows.empty();
}

} // namespace vantrel::PreChangeSnapshot

#include "VantrelCore/model/SessionLock.h"

namespace vantrel {

SessionLock::Change SessionLock::set(const std::string& source, bool isLocked) {
    const bool wasLocked = this->isLocked();
    if (isLocked) {
        m_sources.insert(source);
    } else {
        m_sources.erase(source);
    }
    if (wasLocked == this->isLocked()) {
        return Change::none;
    }
    return wasLocked ? Change::unlocked : Change::locked;
}

} // namespace vantrel

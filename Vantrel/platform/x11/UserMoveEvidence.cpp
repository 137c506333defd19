#include "Vantrel/platform/x11/UserMoveEvidence.h"

#include <utility>

namespace vantrel {

void UserMoveEvidence::noteFocus(Focus focus, Time now) {
    const bool wasGrabbed = std::exchange(m_isGrabbed, focus == Focus::grabbed);
    if (wasGrabbed && !m_isGrabbed) {
        m_grabEnd = now;
    }
}

UserMoveEvidence::Mover UserMoveEvidence::noteArea(const Rect& area, Time now) {
    if (std::exchange(m_area, area) == area) {
        return Mover::nobody;
    }
    if (m_isGrabbed || (m_grabEnd && now - *m_grabEnd <= aftermath)) {
        m_isUsers = true;
    }
    return m_isUsers ? Mover::user : Mover::unknown;
}

} // namespace vantrel

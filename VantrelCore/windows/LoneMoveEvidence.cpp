#include "VantrelCore/windows/LoneMoveEvidence.h"

namespace vantrel {

void LoneMoveEvidence::noteMove(Time now, Time ours) {
    if (now - m_lastMove >= stillness && now - ours > aftermath &&
        (!m_lastOther || now - *m_lastOther > company)) {
        m_lone = now;
    }
    m_lastMove = now;
}

void LoneMoveEvidence::noteOther(Time now) {
    if (m_lone && now - *m_lone <= company) {
        m_lone.reset();
    }
    m_lastOther = now;
}

bool LoneMoveEvidence::isSeen(Time now) const {
    return m_lone && now - *m_lone > company;
}

} // namespace vantrel

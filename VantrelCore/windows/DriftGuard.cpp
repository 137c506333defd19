#include "VantrelCore/windows/DriftGuard.h"

namespace vantrel {

namespace {

// In points.
constexpr double tolerance = 2.0;

} // namespace

bool DriftGuard::observe(const Layout& current, const Layout& pinned) {
    if (current.geometryMatches(pinned, tolerance)) {
        m_driftCount = 0;
        return false;
    }
    ++m_driftCount;
    if (m_driftCount < m_required) {
        return false;
    }
    m_driftCount = 0;
    return true;
}

} // namespace vantrel

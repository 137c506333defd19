#include "VantrelCore/displays/SnapshotStabilityGate.h"

#include <algorithm>

namespace vantrel {

SnapshotStabilityGate::SnapshotStabilityGate(int requiredStableObservations)
    : m_required(std::max(2, requiredStableObservations)) {}

std::optional<Layout> SnapshotStabilityGate::observe(const Layout& snapshot,
                                                     const std::optional<Layout>& current) {
    if (current && snapshot.hasSamePlaces(*current)) {
        reset();
        return std::nullopt;
    }
    if (!m_pending || !snapshot.hasSamePlaces(*m_pending)) {
        m_pending = snapshot;
        m_stableCount = 0;
        return std::nullopt;
    }
    ++m_stableCount;
    if (m_stableCount < m_required - 1) {
        return std::nullopt;
    }
    reset();
    return snapshot;
}

void SnapshotStabilityGate::reset() {
    m_pending.reset();
    m_stableCount = 0;
}

} // namespace vantrel

// Releases a captured layout for learning only after several identical captures in a row, so that windows in
// motion are not learned.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <optional>

namespace vantrel {

class SnapshotStabilityGate {
public:
    // How many consecutive observations must agree; values below 2 count as 2.
    explicit SnapshotStabilityGate(int requiredStableObservations);

    // Takes a fresh capture and the layout stored under the same desk and name; returns the layout to save.
    [[nodiscard]] std::optional<Layout> observe(const Layout& snapshot, const std::optional<Layout>& current);

    // The next observation starts a new run.
    void reset();

private:
    int m_required;
    std::optional<Layout> m_pending;
    int m_stableCount = 0;
};

} // namespace vantrel

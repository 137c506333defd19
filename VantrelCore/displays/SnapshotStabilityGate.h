// Lets a captured layout pass for learning only after the same geometry was seen several times in a row, so
// that windows caught in motion are not learned.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <optional>

namespace vantrel {

class SnapshotStabilityGate {
public:
    // At least 2 observations in a row; fewer count as 2.
    explicit SnapshotStabilityGate(int requiredStableObservations);

    // Takes a fresh capture and the layout stored under the same desk and name; returns the layout to save.
    [[nodiscard]] std::optional<Layout> observe(const Layout& snapshot, const std::optional<Layout>& current);

    // What comes next is the first of its row.
    void reset();

private:
    int m_required;
    std::optional<Layout> m_pending;
    int m_stableCount = 0;
};

} // namespace vantrel

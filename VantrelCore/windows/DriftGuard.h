// Decides when a pinned layout has drifted for long enough to be put back: after several drifting
// observations in a row, so that a window that is just being dragged is left alone.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <algorithm>
#include <cstdint>

namespace vantrel {

class DriftGuard {
public:
    // At least 1 observation; fewer count as 1.
    explicit DriftGuard(std::int64_t requiredObservations)
        : m_required(std::max<std::int64_t>(requiredObservations, 1)) {}

    bool operator==(const DriftGuard&) const = default;

    // True when this observation completes the required number; the count then starts over.
    [[nodiscard]] bool observe(const Layout& current, const Layout& pinned);

    void reset() { m_driftCount = 0; }

    [[nodiscard]] std::int64_t driftCount() const { return m_driftCount; }

    [[nodiscard]] std::int64_t required() const { return m_required; }

private:
    std::int64_t m_driftCount = 0;
    std::int64_t m_required;
};

} // namespace vantrel

// Decides when to restore a pinned layout: after several consecutive observations of drift, so that a window
// being dragged is left alone.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <algorithm>
#include <cstdint>

namespace vantrel {

class DriftGuard {
public:
    // Values below 1 count as 1.
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

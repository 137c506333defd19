// Permission to move windows, given to one restore and revoked when its desk is no longer current. A late
// worker's requests then fail at once instead of moving windows on the new desk.
#pragma once

#include "VantrelCore/windows/CurrentWindow.h"

#include <atomic>
#include <memory>
#include <vector>

namespace vantrel {

// Revoked on the main thread; checked and used on workers.
class MovePermit {
public:
    void revoke() { m_isRevoked = true; }
    [[nodiscard]] bool isRevoked() const { return m_isRevoked; }

    // Records that a window was asked to move under this permit.
    void noteUse() const { m_isUsed = true; }
    [[nodiscard]] bool isUsed() const { return m_isUsed; }

private:
    std::atomic<bool> m_isRevoked = false;
    mutable std::atomic<bool> m_isUsed = false;
};

// Wraps the windows: once the permit is revoked, reads return nothing and writes are refused.
[[nodiscard]] std::vector<CurrentWindow> underPermit(std::vector<CurrentWindow> windows,
                                                     const std::shared_ptr<const MovePermit>& permit);

} // namespace vantrel

// The right to move windows, given to one restore and taken back when the desk it was meant for is gone:
// what a late worker still asks of a window then fails at once instead of moving it off the new desk.
#pragma once

#include "VantrelCore/windows/CurrentWindow.h"

#include <atomic>
#include <memory>
#include <vector>

namespace vantrel {

// Revoked on the main thread, asked and used on workers.
class MovePermit {
public:
    void revoke() { m_isRevoked = true; }
    [[nodiscard]] bool isRevoked() const { return m_isRevoked; }

    // A window was asked to move under this permit.
    void noteUse() const { m_isUsed = true; }
    [[nodiscard]] bool isUsed() const { return m_isUsed; }

private:
    std::atomic<bool> m_isRevoked = false;
    mutable std::atomic<bool> m_isUsed = false;
};

// The same windows; once the permit is revoked, their reads give nothing and their writes are refused.
[[nodiscard]] std::vector<CurrentWindow> underPermit(std::vector<CurrentWindow> windows,
                                                     const std::shared_ptr<const MovePermit>& permit);

} // namespace vantrel

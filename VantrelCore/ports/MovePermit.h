// Permission to move windows, issued to one restore and revoked when its desk goes away: late orders then
// fail instead of moving windows on the new desk.
#pragma once

#include <atomic>

namespace vantrel {

// Revoked on the main thread, checked and used on workers.
class MovePermit {
public:
    void revoke() { m_isRevoked = true; }
    [[nodiscard]] bool isRevoked() const { return m_isRevoked; }

    // A window was ordered to move under this permit.
    void noteUse() const { m_isUsed = true; }
    [[nodiscard]] bool isUsed() const { return m_isUsed; }

private:
    std::atomic<bool> m_isRevoked = false;
    mutable std::atomic<bool> m_isUsed = false;
};

} // namespace vantrel

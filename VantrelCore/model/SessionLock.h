// Whether the user's session is locked, by what several programs say of it.
#pragma once

#include <set>
#include <string>

namespace vantrel {

class SessionLock {
public:
    enum class Change { none, locked, unlocked };

    // One of them says so. The session is locked while any does.
    Change set(const std::string& source, bool isLocked);

    [[nodiscard]] bool isLocked() const { return !m_sources.empty(); }

private:
    std::set<std::string> m_sources;
};

} // namespace vantrel

// Whether the user's session is locked, combining reports from several sources.
#pragma once

#include <set>
#include <string>

namespace vantrel {

class SessionLock {
public:
    enum class Change { none, locked, unlocked };

    // Records one source's report. The session is locked while any source says so.
    Change set(const std::string& source, bool isLocked);

    [[nodiscard]] bool isLocked() const { return !m_sources.empty(); }

private:
    std::set<std::string> m_sources;
};

} // namespace vantrel

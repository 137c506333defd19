// The installed desktop files, read when a window with an unknown class appears.
#pragma once

#include "Vantrel/platform/x11/ApplicationIdentity.h"

#include <chrono>
#include <map>
#include <mutex>
#include <optional>

namespace vantrel {

// Thread-safe.
class DesktopEntries {
public:
    // Returns the application of a window. Results are cached. An unknown class makes it reread the files, at
    // most once a minute.
    [[nodiscard]] std::optional<ApplicationIdentity> identify(const ApplicationEvidence& evidence);

    // Returns the entry with that id, ignoring case.
    [[nodiscard]] std::optional<DesktopEntry> entry(const std::string& id);

private:
    void readWhenOld();

    std::mutex m_mutex;
    DesktopEntryTable m_table;
    std::optional<std::chrono::steady_clock::time_point> m_readAt;
    std::map<ApplicationEvidence, std::optional<ApplicationIdentity>> m_known;
};

} // namespace vantrel

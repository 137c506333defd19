// The installed desktop files, read when a window of a class not seen before asks for them.
#pragma once

#include "Vantrel/platform/x11/ApplicationIdentity.h"

#include <chrono>
#include <map>
#include <mutex>
#include <optional>

namespace vantrel {

// May be used from any thread.
class DesktopEntries {
public:
    // The application of a window; remembered, so that asking again costs one look-up in memory. The files
    // are read again, every minute at most, when a class not seen before appears.
    [[nodiscard]] std::optional<ApplicationIdentity> identify(const ApplicationEvidence& evidence);

    // The file of that id, upper and lower case taken for the same.
    [[nodiscard]] std::optional<DesktopEntry> entry(const std::string& id);

private:
    void readWhenOld();

    std::mutex m_mutex;
    DesktopEntryTable m_table;
    std::optional<std::chrono::steady_clock::time_point> m_readAt;
    std::map<ApplicationEvidence, std::optional<ApplicationIdentity>> m_known;
};

} // namespace vantrel

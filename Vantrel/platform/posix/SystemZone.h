// This machine's time zone.
#pragma once

#include "Vantrel/platform/posix/ZoneDatabase.h"
#include "VantrelCore/ports/LocalZone.h"

#include <functional>
#include <string>
#include <utility>

namespace vantrel {

// Uses TZ if it is set, interpreted as the C library does: a zone name, a file or a POSIX value. Otherwise
// uses /etc/localtime. Falls back to UTC if the zone cannot be read. Logs that, and changes of the zone.
class SystemZone final : public LocalZone {
public:
    using Log = std::function<void(const std::string& message)>;

    explicit SystemZone(Log log, std::filesystem::path localtime = "/etc/localtime",
                        ZoneDatabase database = ZoneDatabase())
        : m_log(std::move(log)), m_localtime(std::move(localtime)), m_database(std::move(database)) {}

    TimeZone current() override;

private:
    [[nodiscard]] std::optional<TimeZone> look();

    Log m_log;
    std::filesystem::path m_localtime;
    ZoneDatabase m_database;
    // The last result; none before the first call.
    std::optional<TimeZone> m_zone;
    bool m_isUnreadable = false;
};

} // namespace vantrel

// The time zone that this machine is set to.
#pragma once

#include "Vantrel/platform/posix/ZoneDatabase.h"
#include "VantrelCore/ports/LocalZone.h"

#include <functional>
#include <string>
#include <utility>

namespace vantrel {

// TZ where it is set, read as the C library reads it: the name of a zone, a file, or a POSIX value. Else
// /etc/localtime. A zone that cannot be read counts as UTC; the log says so, and when the zone changes.
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
    // As last looked: none before the first time.
    std::optional<TimeZone> m_zone;
    bool m_isUnreadable = false;
};

} // namespace vantrel

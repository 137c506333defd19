// The time zone that this machine is set to.
#pragma once

#include "VantrelCore/ports/LocalZone.h"

#include <string>

namespace vantrel {

// TZ where it is set, else /etc/localtime. A zone without a name counts as UTC.
class SystemZone final : public LocalZone {
public:
    TimeZone current() override;

private:
    // What the zone depends on, as last looked.
    std::string m_mark;
    TimeZone m_zone = TimeZone::utc();
};

} // namespace vantrel

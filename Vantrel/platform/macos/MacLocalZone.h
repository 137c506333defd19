// The time zone that the user's Mac is set to.
#pragma once

#include "VantrelCore/ports/LocalZone.h"

#include <string>

namespace vantrel {

// A zone that nobody knows counts as UTC.
class MacLocalZone final : public LocalZone {
public:
    [[nodiscard]] TimeZone current() override;

private:
    // As last looked.
    std::string m_name;
    TimeZone m_zone = TimeZone::utc();
};

} // namespace vantrel

// The time zone that the user's Mac is set to.
#pragma once

#include "VantrelCore/ports/LocalZone.h"

namespace vantrel {

// With the rules that the system has for it now, a year back and two ahead.
class MacLocalZone final : public LocalZone {
public:
    [[nodiscard]] TimeZone current() override;
};

} // namespace vantrel

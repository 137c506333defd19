// The time zone of the Mac.
#pragma once

#include "VantrelCore/ports/LocalZone.h"

namespace vantrel {

// Uses the system's current rules, for about one year back and two years ahead.
class MacLocalZone final : public LocalZone {
public:
    [[nodiscard]] TimeZone current() override;
};

} // namespace vantrel

// A time zone that tests can change.
#pragma once

#include "VantrelCore/ports/LocalZone.h"

namespace vantrel::simulated {

class SimulatedZone final : public LocalZone {
public:
    TimeZone zone = TimeZone::utc();

    TimeZone current() override { return zone; }
};

} // namespace vantrel::simulated

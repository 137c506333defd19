// Port: the time zone of the user's clock.
#pragma once

#include "VantrelCore/model/TimeZone.h"

namespace vantrel {

class LocalZone {
public:
    LocalZone() = default;
    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;
    virtual ~LocalZone() = default;

    // As it is now: a traveller's changes while the program runs. Used on the main thread.
    [[nodiscard]] virtual TimeZone current() = 0;
};

} // namespace vantrel

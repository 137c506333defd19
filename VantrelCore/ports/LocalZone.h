// Port: the user's time zone.
#pragma once

#include "VantrelCore/model/TimeZone.h"

namespace vantrel {

class LocalZone {
public:
    LocalZone() = default;
    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;
    virtual ~LocalZone() = default;

    // Can change while the program runs, as when the user travels. Used on the main thread.
    [[nodiscard]] virtual TimeZone current() = 0;
};

} // namespace vantrel

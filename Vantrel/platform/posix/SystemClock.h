// The system's clocks.
#pragma once

#include "VantrelCore/ports/Clock.h"

namespace vantrel {

class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() override;
    [[nodiscard]] double monotonicSeconds() override;
    void sleep(double seconds) override;
};

} // namespace vantrel

// Port: time. Wall-clock dates for what is stored and shown, a monotonic clock for what is measured.
#pragma once

#include "VantrelCore/model/Date.h"

namespace vantrel {

// May be used from any thread.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    [[nodiscard]] virtual Date now() = 0;

    // Seconds from an arbitrary start; never goes back.
    [[nodiscard]] virtual double monotonicSeconds() = 0;

    // Blocks the calling thread. Never called on the main thread, except by PatientFileSystem.
    virtual void sleep(double seconds) = 0;
};

} // namespace vantrel

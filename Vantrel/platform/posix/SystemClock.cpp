#include "Vantrel/platform/posix/SystemClock.h"

#include <chrono>
#include <thread>

namespace vantrel {

Date SystemClock::now() {
    return std::chrono::floor<Date::duration>(std::chrono::system_clock::now());
}

double SystemClock::monotonicSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void SystemClock::sleep(double seconds) {
    if (seconds > 0) {
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    }
}

} // namespace vantrel

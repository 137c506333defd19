#include "Vantrel/diagnostics/CrashTest.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace vantrel::CrashTest {

namespace {

[[noreturn]] void crash() {
    std::fputs("VANTREL_CRASH_TEST forced crash for end-to-end verification\n", stderr);
    std::abort();
}

} // namespace

std::unique_ptr<ScheduledWork> schedule(MainQueue& queue, const char* value) {
    if (value == nullptr || std::string_view(value) != "1") {
        return nullptr;
    }
    return queue.after(delaySeconds, [] { crash(); });
}

} // namespace vantrel::CrashTest

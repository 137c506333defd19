// Crashes in the given way: FOLDER WAY [HANDLER]. HANDLER, "fault" or "hang", is what the reporter's handler
// does in the middle of its work.
#include "Vantrel/platform/posix/CrashReporter.h"
#include "Vantrel/platform/posix/ReportedThread.h"

#include <array>
#include <barrier>
#include <csignal>
#include <cstring>
#include <dlfcn.h>
#include <stdexcept>
#include <string_view>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

volatile std::sig_atomic_t isCrashing = 0;
std::string_view handlerFate;
volatile int* volatile nowhere = nullptr;

template <typename Function>
Function realOne(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

// In a named namespace and not inlined, so that backtraces have their names.
namespace crashprobe {

[[gnu::noinline]] void writeToNowhere() {
    *nowhere = 1;
}

// The depth keeps the compiler from making a loop of it.
[[gnu::noinline]] int recurseForEver(volatile int* depth) {
    std::array<volatile int, 64> room{};
    room[0] = *depth + 1;
    if (room[0] < 0) {
        return 0;
    }
    return recurseForEver(room.data()) + room[1];
}

[[gnu::noinline]] void recurse() {
    volatile int depth = 0;
    recurseForEver(&depth);
}

[[gnu::noinline]] void throwUncaught() {
    throw std::runtime_error("no window named \"Letter to Anna\" in /home/anna/letters");
}

void terminate() noexcept {
    std::terminate();
}

void onThread(void (*crash)()) {
    vantrel::posix::reportedThread(crash).join();
}

void onManyThreads() {
    constexpr int count = 8;
    static std::barrier together(count);
    for (int i = 1; i < count; ++i) {
        std::thread([] {
            together.arrive_and_wait();
            writeToNowhere();
        }).detach();
    }
    together.arrive_and_wait();
    writeToNowhere();
}

constexpr std::array signals{
    std::pair{"SIGILL", SIGILL}, std::pair{"SIGTRAP", SIGTRAP}, std::pair{"SIGABRT", SIGABRT},
    std::pair{"SIGFPE", SIGFPE}, std::pair{"SIGBUS", SIGBUS},   std::pair{"SIGSEGV", SIGSEGV},
};

[[gnu::noinline]] void crash(std::string_view way) {
    for (const auto& [name, signal] : signals) {
        if (way == name) {
            std::raise(signal);
        }
    }
    if (way == "nowhere") {
        writeToNowhere();
    } else if (way == "recursion") {
        recurse();
    } else if (way == "exception") {
        throwUncaught();
    } else if (way == "number") {
        throw 42;
    } else if (way == "foreign") {
        vantrel::CrashReporter::reportUncaught(
            {.name = "NSRangeException", .reason = "index 3", .callStack = "vantrel_crash_probe(crash) [0]"});
        std::abort();
    } else if (way == "terminate") {
        terminate();
    } else if (way == "nowhereOnThread") {
        onThread(writeToNowhere);
    } else if (way == "recursionOnThread") {
        onThread(recurse);
    } else if (way == "exceptionOnThread") {
        onThread(throwUncaught);
    } else if (way == "manyThreads") {
        onManyThreads();
    }
}

} // namespace crashprobe

// Replaces glibc's, which the reporter's handler calls.
extern "C" int backtrace(void** frames, int size) {
    if (isCrashing != 0 && handlerFate == "fault") {
        crashprobe::writeToNowhere();
    }
    while (isCrashing != 0 && handlerFate == "hang") {
        ::pause();
    }
    return realOne<int (*)(void**, int)>("backtrace")(frames, size);
}

// Shortens the reporter's deadline from ten seconds to one.
extern "C" unsigned alarm(unsigned /*seconds*/) noexcept {
    return realOne<unsigned (*)(unsigned)>("alarm")(1);
}

int main(int count, char** arguments) {
    if (count < 3) {
        return 2;
    }
    const rlimit noCore{};
    setrlimit(RLIMIT_CORE, &noCore);
    handlerFate = count > 3 ? arguments[3] : "";
    vantrel::CrashReporter::install(
        arguments[1],
        {.version = "1.2.3", .build = "abc", .operatingSystem = "Test OS 1", .hardware = "Test machine"});
    vantrel::CrashReporter::installExceptionHandler();
    isCrashing = 1;
    crashprobe::crash(arguments[2]);
    return 0;
}

// Its functions replace those that fortified headers would define.
#undef _FORTIFY_SOURCE

#include "tests/faults/FaultySystem.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <pthread.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace vantrel::faults {

namespace {

// In nanoseconds.
constexpr std::int64_t second = 1'000'000'000;

struct State {
    std::mutex mutex;
    bool isArmed = false;
    bool skipsSleep = false;
    std::string folder;
    Fault fault;
    std::vector<std::string> calls;
    // The descriptors of files below the folder.
    std::array<bool, 1024> isOurs{};
};

// How far the clock is ahead because of sleeps that returned at once. Not in the state, which allocates.
constinit std::atomic<std::int64_t> skippedNanoseconds{0};

// Never destroyed, because calls come until the process ends.
State& state() {
    static State& only = *new State;
    return only;
}

void armAs(const std::string& folder, const Fault& fault, bool skipsSleep) {
    auto& all = state();
    const std::scoped_lock lock(all.mutex);
    all.folder = folder;
    all.fault = fault;
    all.skipsSleep = skipsSleep;
    all.calls.clear();
    all.isArmed = true;
}

// Arms a program that preloads this from "FOLDER:FIRST:COUNT:ERROR". Its sleeps take their time.
[[gnu::constructor]] void armByEnvironment() {
    // A forked child must not inherit a lock that another thread holds.
    pthread_atfork([] { state().mutex.lock(); }, [] { state().mutex.unlock(); },
                   [] { state().mutex.unlock(); });
    const char* const text = std::getenv("VANTREL_FAULT");
    if (text == nullptr) {
        return;
    }
    // What this program starts runs without faults, a sanitizer's symbolizer included.
    unsetenv("LD_PRELOAD");
    const std::string_view all = text;
    const auto end = all.find(':');
    Fault fault;
    if (end != std::string_view::npos &&
        std::sscanf(text + end, ":%zu:%zu:%d", &fault.firstCall, &fault.count, &fault.error) == 3) {
        armAs(std::string(all.substr(0, end)), fault, false);
    }
}

bool isBelow(const char* path) {
    const auto& folder = state().folder;
    return std::strncmp(path, folder.c_str(), folder.size()) == 0 &&
           (path[folder.size()] == '/' || path[folder.size()] == '\0');
}

bool isOurs(int descriptor) {
    const auto& ours = state().isOurs;
    return descriptor >= 0 && static_cast<std::size_t>(descriptor) < ours.size() &&
           ours[static_cast<std::size_t>(descriptor)];
}

void note(int descriptor, bool isOneOfOurs) {
    auto& ours = state().isOurs;
    if (descriptor >= 0 && static_cast<std::size_t>(descriptor) < ours.size()) {
        ours[static_cast<std::size_t>(descriptor)] = isOneOfOurs;
    }
}

enum class Verdict { pass, half, fail };

// Counts the call. Sets errno when the call shall fail.
Verdict judge(const char* name) {
    auto& all = state();
    const auto number = all.calls.size();
    all.calls.emplace_back(name);
    const bool isDue = number >= all.fault.firstCall && number - all.fault.firstCall < all.fault.count;
    if (!isDue) {
        return Verdict::pass;
    }
    if (all.fault.error == 0) {
        return Verdict::half;
    }
    errno = all.fault.error;
    return Verdict::fail;
}

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

class Guard {
public:
    Guard() : m_lock(state().mutex) {}
    [[nodiscard]] bool isArmed() const { return state().isArmed; }

private:
    std::scoped_lock<std::mutex> m_lock;
};

// A call on a path.
template <typename Result, typename Call>
Result onPath(const char* name, bool isAffected, Result failure, Call call) {
    const Guard guard;
    if (guard.isArmed() && isAffected && judge(name) == Verdict::fail) {
        return failure;
    }
    return call();
}

template <typename Call>
int opening(const char* name, bool isAffected, Call call) {
    return onPath(name, isAffected, -1, [&] {
        const int descriptor = call();
        note(descriptor, isAffected);
        return descriptor;
    });
}

// A call that reads or writes `size` bytes.
template <typename Call>
ssize_t moving(const char* name, int descriptor, std::size_t size, Call call) {
    {
        const Guard guard;
        if (guard.isArmed() && isOurs(descriptor)) {
            const auto verdict = judge(name);
            if (verdict == Verdict::fail) {
                return -1;
            }
            size = verdict == Verdict::half && size > 1 ? size / 2 : size;
        }
    }
    return call(size);
}

unsigned permissions(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, unsigned) : 0;
}

} // namespace

void arm(const std::string& folder, const Fault& fault) {
    armAs(folder, fault, true);
}

std::vector<std::string> disarm() {
    auto& all = state();
    const std::scoped_lock lock(all.mutex);
    all.isArmed = false;
    return std::move(all.calls);
}

} // namespace vantrel::faults

using namespace vantrel::faults;

// As the C library declares them, except for the attributes.
extern "C" {

// A structure has the same name.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
int flock(int descriptor, int operation) noexcept {
    return onPath("flock", isOurs(descriptor), -1,
                  [&] { return next<int(int, int)>("flock")(descriptor, operation); });
}
#pragma GCC diagnostic pop

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = permissions(flags, arguments);
    va_end(arguments);
    return opening("open", isBelow(path), [&] { return next<decltype(open)>("open")(path, flags, mode); });
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = permissions(flags, arguments);
    va_end(arguments);
    return opening("open", isBelow(path), [&] { return next<decltype(open)>("open64")(path, flags, mode); });
}

int openat(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = permissions(flags, arguments);
    va_end(arguments);
    return opening("open", isBelow(path) || isOurs(folder),
                   [&] { return next<decltype(openat)>("openat")(folder, path, flags, mode); });
}

int mkostemp(char* path, int flags) {
    return opening("mkostemp", isBelow(path),
                   [&] { return next<decltype(mkostemp)>("mkostemp")(path, flags); });
}

DIR* opendir(const char* path) {
    return onPath("opendir", isBelow(path), static_cast<DIR*>(nullptr),
                  [&] { return next<decltype(opendir)>("opendir")(path); });
}

int close(int descriptor) {
    const auto really = [&] { return next<decltype(close)>("close")(descriptor); };
    const Guard guard;
    if (!guard.isArmed() || !isOurs(descriptor)) {
        return really();
    }
    note(descriptor, false);
    const bool fails = judge("close") == Verdict::fail;
    const int error = errno;
    const int result = really();
    errno = fails ? error : errno;
    return fails ? -1 : result;
}

ssize_t read(int descriptor, void* buffer, std::size_t size) {
    return moving("read", descriptor, size,
                  [&](std::size_t part) { return next<decltype(read)>("read")(descriptor, buffer, part); });
}

ssize_t write(int descriptor, const void* buffer, std::size_t size) {
    return moving("write", descriptor, size,
                  [&](std::size_t part) { return next<decltype(write)>("write")(descriptor, buffer, part); });
}

int fsync(int descriptor) {
    return onPath("fsync", isOurs(descriptor), -1,
                  [&] { return next<decltype(fsync)>("fsync")(descriptor); });
}

int fchmod(int descriptor, mode_t mode) noexcept {
    return onPath("fchmod", isOurs(descriptor), -1,
                  [&] { return next<decltype(fchmod)>("fchmod")(descriptor, mode); });
}

int fstat(int descriptor, struct stat* status) noexcept {
    return onPath("fstat", isOurs(descriptor), -1,
                  [&] { return next<decltype(fstat)>("fstat")(descriptor, status); });
}

int stat(const char* path, struct stat* status) noexcept {
    return onPath("stat", isBelow(path), -1,
                  [&] { return next<int(const char*, struct stat*)>("stat")(path, status); });
}

int lstat(const char* path, struct stat* status) noexcept {
    return onPath("lstat", isBelow(path), -1, [&] { return next<decltype(lstat)>("lstat")(path, status); });
}

int rename(const char* from, const char* to) noexcept {
    return onPath("rename", isBelow(from), -1, [&] { return next<decltype(rename)>("rename")(from, to); });
}

int unlink(const char* path) noexcept {
    return onPath("unlink", isBelow(path), -1, [&] { return next<decltype(unlink)>("unlink")(path); });
}

int mkdir(const char* path, mode_t mode) noexcept {
    return onPath("mkdir", isBelow(path), -1, [&] { return next<decltype(mkdir)>("mkdir")(path, mode); });
}

int clock_nanosleep(clockid_t clock, int flags, const timespec* length, timespec* rest) {
    {
        const Guard guard;
        if (guard.isArmed() && state().skipsSleep && (flags & TIMER_ABSTIME) == 0) {
            skippedNanoseconds += length->tv_sec * second + length->tv_nsec;
            return 0;
        }
    }
    return next<decltype(clock_nanosleep)>("clock_nanosleep")(clock, flags, length, rest);
}

int nanosleep(const timespec* length, timespec* rest) {
    const int error = clock_nanosleep(CLOCK_MONOTONIC, 0, length, rest);
    errno = error == 0 ? errno : error;
    return error == 0 ? 0 : -1;
}

int clock_gettime(clockid_t clock, timespec* now) noexcept {
    // Allocates nothing and calls no dlsym: address sanitizer asks for the time inside malloc.
    const auto result = static_cast<int>(::syscall(SYS_clock_gettime, clock, now));
    const std::int64_t skipped = skippedNanoseconds + now->tv_nsec;
    now->tv_sec += skipped / second;
    now->tv_nsec = skipped % second;
    return result;
}

} // extern "C"

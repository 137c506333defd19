#include "Vantrel/platform/posix/CrashReporter.h"

#include "Vantrel/platform/posix/AlternateSignalStack.h"
#include "Vantrel/platform/posix/CrashSignals.h"
#include "Vantrel/platform/posix/CrashedFrames.h"
#include "Vantrel/platform/posix/FileDescriptor.h"
#include "Vantrel/platform/posix/FrameSymbols.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "VantrelCore/diagnostics/CrashReportNames.h"
#include "VantrelCore/diagnostics/CrashReportText.h"
#include "VantrelCore/diagnostics/FixedText.h"

#include <array>
#include <atomic>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <cxxabi.h>
#include <exception>
#include <execinfo.h>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <pthread.h>
#include <span>
#include <typeinfo>
#include <unistd.h>

namespace vantrel::CrashReporter {

namespace {

constexpr unsigned ownerOnly = 0600;
constexpr unsigned reportSeconds = 10;
constexpr std::size_t mostFrames = 128;

// Everything that a handler uses, prepared by install. Never destroyed, because the program may crash while
// exiting.
FixedText<PATH_MAX> pathBuffer;
FixedText<2048> headerBuffer;
std::array<void*, mostFrames> backtraceBuffer{};
std::array<char, 20> digitScratch{};
posix::FrameSymbols frameSymbols;
std::size_t folderLength = 0;

std::atomic<bool> isReporting = false;
std::atomic<pthread_t> reportingThread{};
volatile std::sig_atomic_t reportedSignal = 0;
std::terminate_handler formerTerminateHandler = nullptr;
OtherExceptions otherExceptions = OtherExceptions::reportHere;

static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<pthread_t>::is_always_lock_free,
              "a signal handler may not lock");

std::string_view signalName(int signal) {
    switch (signal) {
    case SIGILL:
        return "SIGILL";
    case SIGTRAP:
        return "SIGTRAP";
    case SIGABRT:
        return "SIGABRT";
    case SIGFPE:
        return "SIGFPE";
    case SIGBUS:
        return "SIGBUS";
    case SIGSEGV:
        return "SIGSEGV";
    default:
        return "SIGNAL";
    }
}

// Ends the process as the signal's default action would.
[[noreturn]] void endBy(int signal) {
    std::signal(signal, SIG_DFL);
    sigset_t unblocked;
    sigemptyset(&unblocked);
    sigaddset(&unblocked, signal);
    pthread_sigmask(SIG_UNBLOCK, &unblocked, nullptr);
    std::raise(signal);
    ::_exit(128 + signal);
}

void endUnfinished(int /*signal*/) {
    endBy(reportedSignal);
}

// Returns only for the first crash, which then has `reportSeconds` for its report.
void claimReport(int signal) {
    if (isReporting.exchange(true)) {
        if (::pthread_equal(reportingThread, ::pthread_self()) != 0) {
            endBy(reportedSignal);
        }
        while (true) {
            ::pause();
        }
    }
    reportingThread = ::pthread_self();
    reportedSignal = signal;
    // Walking the stack may hang, for example on a lock that the loader holds.
    std::signal(SIGALRM, endUnfinished);
    sigset_t alarm;
    sigemptyset(&alarm);
    sigaddset(&alarm, SIGALRM);
    pthread_sigmask(SIG_UNBLOCK, &alarm, nullptr);
    ::alarm(reportSeconds);
}

// Appends the time of the crash and `ending` to the folder in the buffer.
bool namePath(std::string_view ending) {
    const auto time = std::to_chars(digitScratch.begin(), digitScratch.end(), std::time(nullptr));
    pathBuffer.truncate(folderLength);
    return pathBuffer.append({digitScratch.data(), time.ptr}) && pathBuffer.append(ending);
}

std::span<void* const> captureFrames() {
    const int count = ::backtrace(backtraceBuffer.data(), static_cast<int>(backtraceBuffer.size()));
    return std::span(backtraceBuffer).first(count > 0 ? static_cast<std::size_t>(count) : 0);
}

// Ignores errors; there is nowhere to report them.
void put(const posix::FileDescriptor& file, std::string_view text) {
    [[maybe_unused]] const auto error = file.writeAll(text);
}

// Safe in a signal handler: uses only open, write, read, close, time and glibc's two backtrace functions. The
// first call of `backtrace` loads a library and allocates, so `install` calls it early.
void writeSignalReport(int signal, void* context) {
    if (!namePath(CrashReportNames::signalEnding)) {
        return;
    }
    const posix::FileDescriptor file(
        ::open(pathBuffer.data(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, ownerOnly));
    if (!file.isOpen()) {
        return;
    }
    put(file, CrashReportText::signalOpening);
    put(file, signalName(signal));
    put(file, "\n");
    put(file, headerBuffer.view());
    put(file, CrashReportText::separator);
    for (void* const frame :
         std::span(backtraceBuffer).first(posix::crashedFrames(context, backtraceBuffer))) {
        put(file, frameSymbols.line(frame));
        put(file, "\n");
    }
}

void handleSignal(int signal, siginfo_t* /*information*/, void* context) {
    claimReport(signal);
    writeSignalReport(signal, context);
    endBy(signal);
}

std::string exceptionName() {
    const std::type_info* const type = abi::__cxa_current_exception_type();
    if (type == nullptr) {
        return "unknown";
    }
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type->name(), nullptr, nullptr, &status), &std::free);
    return name ? name.get() : type->name();
}

std::string exceptionReason() {
    try {
        throw;
    } catch (const std::exception& exception) {
        return CrashReportText::shareableReason(exception.what());
    } catch (...) {
        return "none given";
    }
}

CrashReportText::UncaughtException currentException() {
    std::string callStack;
    for (void* const frame : captureFrames()) {
        callStack += callStack.empty() ? "" : "\n";
        callStack += frameSymbols.line(frame);
    }
    return {.name = exceptionName(), .reason = exceptionReason(), .callStack = std::move(callStack)};
}

// If this fails, the SIGABRT that follows is reported instead.
void reportException(const std::function<CrashReportText::UncaughtException()>& read) {
    claimReport(SIGABRT);
    bool isWritten = false;
    try {
        const auto report = CrashReportText::exceptionReport(headerBuffer.view(), read());
        PosixFileSystem files;
        isWritten = namePath(CrashReportNames::exceptionEnding) &&
                    isReplaced(files.writeAtomically(pathBuffer.data(), report));
    } catch (...) {
        isWritten = false;
    }
    if (isWritten) {
        std::signal(SIGABRT, SIG_DFL);
    } else {
        isReporting = false;
    }
}

bool isStandardException() {
    try {
        throw;
    } catch (const std::exception&) {
        return true;
    } catch (...) {
        return false;
    }
}

// The former handler prints the exception to standard error and calls abort().
[[noreturn]] void handleTerminate() {
    if (std::current_exception() &&
        (otherExceptions == OtherExceptions::reportHere || isStandardException())) {
        reportException(currentException);
    }
    formerTerminateHandler();
    std::abort();
}

// Triggers lazy loading and binding, so that a handler does not have to.
void rehearse() {
    for (void* const frame : captureFrames()) {
        [[maybe_unused]] const auto line = frameSymbols.line(frame);
    }
}

void rehearseHandler(int /*signal*/, siginfo_t* /*information*/, void* context) {
    for (void* const frame :
         std::span(backtraceBuffer).first(posix::crashedFrames(context, backtraceBuffer))) {
        [[maybe_unused]] const auto line = frameSymbols.line(frame);
    }
}

struct sigaction onAlternateStack(void (*handler)(int, siginfo_t*, void*)) {
    struct sigaction action{};
    action.sa_sigaction = handler;
    // A fault during a report must reach the handler, which then ends the process.
    action.sa_flags = SA_ONSTACK | SA_NODEFER | SA_SIGINFO;
    sigemptyset(&action.sa_mask);
    return action;
}

// The same as a handler does, on the stack on which it will run.
void rehearseOnAlternateStack() {
    // Ignored by default.
    constexpr int harmless = SIGURG;
    const struct sigaction action = onAlternateStack(rehearseHandler);
    struct sigaction former{};
    if (::sigaction(harmless, &action, &former) == 0) {
        std::raise(harmless);
        ::sigaction(harmless, &former, nullptr);
    }
}

} // namespace

std::filesystem::path crashesDirectory(const std::filesystem::path& supportDirectory) {
    return supportDirectory / CrashReportNames::folder;
}

void install(const std::filesystem::path& supportDirectory, const SystemDescription& system) {
    const auto folder = crashesDirectory(supportDirectory);
    PosixFileSystem files;
    pathBuffer.truncate(0);
    headerBuffer.truncate(0);
    if (files.createDirectories(folder) || !pathBuffer.append(folder.string() + "/") ||
        !headerBuffer.append(CrashReportText::header(system))) {
        return;
    }
    folderLength = pathBuffer.size();
    frameSymbols.prepare();
    rehearse();
    // Kept for the life of the main thread.
    static const auto* const stack = new posix::AlternateSignalStack();
    static_cast<void>(stack);
    rehearseOnAlternateStack();
    const struct sigaction action = onAlternateStack(handleSignal);
    for (const int signal : posix::crashSignals) {
        ::sigaction(signal, &action, nullptr);
    }
}

void installExceptionHandler(OtherExceptions other) {
    if (formerTerminateHandler == nullptr && folderLength > 0) {
        otherExceptions = other;
        formerTerminateHandler = std::set_terminate(handleTerminate);
    }
}

void reportUncaught(const CrashReportText::UncaughtException& exception) {
    if (folderLength > 0) {
        reportException([&] { return exception; });
    }
}

} // namespace vantrel::CrashReporter

// A program that crashes in every way: how it ends, and the report it leaves.
#include "VantrelCore/diagnostics/CrashReportNames.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <csignal>
#include <ctime>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrel {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* header = "version: 1.2.3\nbuild: abc\nsystem: Test OS 1\nhardware: Test machine\n";

// The signal that ended the probe; 0 when it ended otherwise.
int endOfProbe(const std::filesystem::path& folder, const std::string& way, const std::string& fate = "") {
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl(CRASH_PROBE_PROGRAM, CRASH_PROBE_PROGRAM, folder.c_str(), way.c_str(), fate.c_str(), nullptr);
        ::_exit(1);
    }
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

// Name and text of each.
std::map<std::string, std::string> reportsIn(const std::filesystem::path& folder) {
    std::map<std::string, std::string> reports;
    for (const auto& entry : std::filesystem::directory_iterator(folder / CrashReportNames::folder)) {
        reports.emplace(entry.path().filename(), textOf(entry.path()));
    }
    return reports;
}

struct Crash {
    std::string way;
    int signal = 0;
    // The end of the report's name, and what follows "kind: ".
    std::string_view ending;
    std::string opening;
    // A function in the stack.
    std::string function;
};

std::ostream& operator<<(std::ostream& stream, const Crash& crash) {
    return stream << crash.way;
}

class CrashReporter : public ::testing::TestWithParam<Crash> {};

TEST_P(CrashReporter, LeavesOneWholeReportAndEndsByTheSameSignal) {
    const auto& crash = GetParam();
    const TemporaryFolder folder;
    const auto before = std::time(nullptr);
    EXPECT_EQ(endOfProbe(folder.path(), crash.way), crash.signal);
    const auto after = std::time(nullptr);

    const auto reports = reportsIn(folder.path());
    ASSERT_EQ(reports.size(), 1U) << ::testing::PrintToString(reports);
    const auto& [name, text] = *reports.begin();
    std::size_t digits = 0;
    const auto time = std::stoll(name, &digits);
    EXPECT_EQ(name.substr(digits), crash.ending);
    EXPECT_GE(time, before);
    EXPECT_LE(time, after);
    EXPECT_THAT(text, StartsWith("kind: " + crash.opening));
    EXPECT_THAT(text,
                AllOf(HasSubstr("\n---\nvantrel_crash_probe("), HasSubstr(crash.function), EndsWith("]\n")));
    // No folders and nothing private.
    EXPECT_THAT(text, AllOf(Not(HasSubstr("/")), Not(HasSubstr("Anna")), Not(HasSubstr("anna"))));
}

Crash bySignal(const std::string& name, int signal, const std::string& way = "",
               const std::string& function = "crash") {
    return {.way = way.empty() ? name : way,
            .signal = signal,
            .ending = "-signal.crash",
            .opening = "signal\nsignal: " + name + "\n" + header + "---\n",
            .function = function};
}

Crash byException(const std::string& way, const std::string& nameAndReason, const std::string& function) {
    return {.way = way,
            .signal = SIGABRT,
            .ending = "-exception.crash",
            .opening = std::string("exception\n") + header + nameAndReason + "\n---\n",
            .function = function};
}

INSTANTIATE_TEST_SUITE_P(
    Every, CrashReporter,
    ::testing::Values(
        bySignal("SIGILL", SIGILL), bySignal("SIGTRAP", SIGTRAP), bySignal("SIGABRT", SIGABRT),
        bySignal("SIGFPE", SIGFPE), bySignal("SIGBUS", SIGBUS), bySignal("SIGSEGV", SIGSEGV),
        bySignal("SIGSEGV", SIGSEGV, "nowhere", "writeToNowhere"),
        bySignal("SIGSEGV", SIGSEGV, "nowhereOnThread", "writeToNowhere"),
        bySignal("SIGSEGV", SIGSEGV, "manyThreads", "writeToNowhere"),
        bySignal("SIGSEGV", SIGSEGV, "recursion", "recurseForEver"),
        bySignal("SIGSEGV", SIGSEGV, "recursionOnThread", "recurseForEver"),
        bySignal("SIGABRT", SIGABRT, "terminate"),
        byException("exception", "name: std::runtime_error\nreason: no window named … in …", "throwUncaught"),
        byException("exceptionOnThread", "name: std::runtime_error\nreason: no window named … in …",
                    "throwUncaught"),
        byException("number", "name: int\nreason: none given", "crash"),
        byException("foreign", "name: NSRangeException\nreason: index 3", "crash")),
    ::testing::PrintToStringParamName());

TEST(CrashReporterItself, EndsTheProgramByTheFirstSignalWhenItsHandlerFaultsOrHangs) {
    for (const std::string fate : {"fault", "hang"}) {
        for (const auto& [way, signal] : {std::pair{"SIGFPE", SIGFPE}, std::pair{"exception", SIGABRT}}) {
            const TemporaryFolder folder;
            EXPECT_EQ(endOfProbe(folder.path(), way, fate), signal) << way << " " << fate;
            for (const auto& [name, text] : reportsIn(folder.path())) {
                EXPECT_EQ(text, std::string("kind: signal\nsignal: SIGFPE\n") + header + "---\n");
            }
        }
    }
}

TEST(CrashReporterItself, DoesNotChangeTheEndWhenItsFolderCannotBeUsed) {
    const TemporaryFolder folder;
    putText(folder.path() / CrashReportNames::folder, "a file");
    EXPECT_EQ(endOfProbe(folder.path(), "SIGFPE"), SIGFPE);
    EXPECT_EQ(endOfProbe(folder.path(), "exception"), SIGABRT);
    EXPECT_EQ(folder.names().size(), 1U);
}

} // namespace
} // namespace vantrel

#include "tests/live/desk/ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace vantrel::live {

namespace {

std::vector<char*> pointers(const std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (const std::string& text : texts) {
        result.push_back(const_cast<char*>(text.c_str()));
    }
    result.push_back(nullptr);
    return result;
}

// Between fork and exec: only what is safe there. Writes errno to `report` when it cannot go on.
[[noreturn]] void becomeProgram(const char* file, char* const* arguments, char* const* environment,
                                const char* workingDirectory, int output, std::optional<int> passed,
                                int report, pid_t parent) {
    const auto fail = [report] {
        const int error = errno;
        [[maybe_unused]] const ssize_t written = write(report, &error, sizeof error);
        _exit(127);
    };
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
        _exit(127);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    signal(SIGPIPE, SIG_DFL);
    const int input = open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (chdir(workingDirectory) != 0 || input < 0 || dup2(input, STDIN_FILENO) < 0 ||
        dup2(output, STDOUT_FILENO) < 0 || dup2(output, STDERR_FILENO) < 0) {
        fail();
    }
    if (passed) {
        const bool inPlace = *passed == 3;
        if (inPlace ? fcntl(3, F_SETFD, 0) < 0 : dup2(*passed, 3) < 0) {
            fail();
        }
    }
    execve(file, arguments, environment);
    fail();
    _exit(127);
}

int exitCode(int status) {
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

std::optional<std::filesystem::path> programFile(std::string_view name) {
    if (name.find('/') != std::string_view::npos) {
        std::filesystem::path file = std::filesystem::absolute(name);
        return access(file.c_str(), X_OK) == 0 ? std::optional(std::move(file)) : std::nullopt;
    }
    const char* path = std::getenv("PATH");
    std::string_view rest = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
    while (!rest.empty()) {
        const std::size_t end = rest.find(':');
        std::filesystem::path file = std::filesystem::path(rest.substr(0, end)) / name;
        if (access(file.c_str(), X_OK) == 0) {
            return file;
        }
        rest = end == std::string_view::npos ? "" : rest.substr(end + 1);
    }
    return std::nullopt;
}

ChildProcess::ChildProcess(const ChildStart& start) : m_name(start.command.at(0)) {
    const std::optional<std::filesystem::path> file = programFile(m_name);
    if (!file) {
        throw std::runtime_error(fmt::format("The program \"{}\" is not installed.", m_name));
    }
    const std::vector<char*> arguments = pointers(start.command);
    const std::vector<char*> environment = pointers(start.environment);
    const int output = open(start.output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    std::array<int, 2> report{};
    // Above 3, so that the passed descriptor cannot overwrite it.
    if (output < 0 || pipe2(report.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error(fmt::format("\"{}\" cannot be given {}: {}.", m_name, start.output.string(),
                                             std::strerror(errno)));
    }
    const int reportEnd = fcntl(report[1], F_DUPFD_CLOEXEC, 10);
    const pid_t parent = getpid();
    m_pid = fork();
    if (m_pid == 0) {
        becomeProgram(file->c_str(), arguments.data(), environment.data(), start.workingDirectory.c_str(),
                      output, start.passedDescriptor, reportEnd, parent);
    }
    close(output);
    close(report[1]);
    close(reportEnd);
    int error = 0;
    const bool failed = m_pid < 0 || read(report[0], &error, sizeof error) == ssize_t{sizeof error};
    close(report[0]);
    if (failed) {
        if (m_pid > 0) {
            waitpid(m_pid, nullptr, 0);
        }
        throw std::runtime_error(
            fmt::format("\"{}\" cannot be started: {}.", m_name, std::strerror(error != 0 ? error : errno)));
    }
}

ChildProcess::~ChildProcess() {
    end();
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : m_pid(std::exchange(other.m_pid, -1)), m_exitCode(other.m_exitCode), m_name(std::move(other.m_name)) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    if (this != &other) {
        end();
        m_pid = std::exchange(other.m_pid, -1);
        m_exitCode = other.m_exitCode;
        m_name = std::move(other.m_name);
    }
    return *this;
}

bool ChildProcess::isRunning() {
    return m_pid > 0 && !waitForExit(0);
}

std::optional<int> ChildProcess::waitForExit(double seconds) {
    if (m_pid <= 0 || m_exitCode) {
        return m_exitCode;
    }
    // glibc 2.36 declares pidfd_open for C only.
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, m_pid, 0));
    pollfd ended{.fd = handle, .events = POLLIN, .revents = 0};
    if (handle >= 0) {
        poll(&ended, 1, static_cast<int>(seconds * 1000));
        close(handle);
    }
    int status = 0;
    if (waitpid(m_pid, &status, WNOHANG) == m_pid) {
        m_exitCode = exitCode(status);
    }
    return m_exitCode;
}

void ChildProcess::end(double graceSeconds) {
    if (m_pid <= 0) {
        return;
    }
    // The group first, while its leader's pid is still ours.
    if (isRunning()) {
        kill(-m_pid, SIGTERM);
        kill(-m_pid, SIGCONT);
        if (!waitForExit(graceSeconds)) {
            kill(-m_pid, SIGKILL);
            waitForExit(10);
        }
    }
    kill(-m_pid, SIGKILL);
    m_pid = -1;
}

} // namespace vantrel::live

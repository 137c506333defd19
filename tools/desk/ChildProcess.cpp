#include "tools/desk/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <glib.h>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace vantrel::tools {

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

// Runs between fork and exec: only async-signal-safe calls.
void bindToParent(gpointer parent) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != *static_cast<const pid_t*>(parent)) {
        _exit(127);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    signal(SIGPIPE, SIG_DFL);
}

int exitCode(int status) {
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

ChildProcess::ChildProcess(const ChildStart& start) {
    const int output = open(start.output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (output < 0) {
        throw std::runtime_error(
            fmt::format("{} cannot be written: {}.", start.output.string(), std::strerror(errno)));
    }
    constexpr int passedAs = 3;
    const int passed = start.passedDescriptor.value_or(-1);
    pid_t parent = getpid();
    GError* error = nullptr;
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, which GLib does not mark as such
    constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
    const bool isStarted =
        g_spawn_async_with_pipes_and_fds(start.workingDirectory.c_str(), pointers(start.command).data(),
                                         pointers(start.environment).data(), flags, bindToParent, &parent, -1,
                                         output, output, &passed, &passedAs, start.passedDescriptor ? 1 : 0,
                                         &m_pid, nullptr, nullptr, nullptr, &error) != 0;
    close(output);
    if (!isStarted) {
        const std::string reason = error->message;
        g_error_free(error);
        throw std::runtime_error(
            fmt::format("The program \"{}\" cannot be started: {}.", start.command.at(0), reason));
    }
}

ChildProcess::~ChildProcess() {
    end();
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : m_pid(std::exchange(other.m_pid, -1)), m_exitCode(other.m_exitCode) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    if (this != &other) {
        end();
        m_pid = std::exchange(other.m_pid, -1);
        m_exitCode = other.m_exitCode;
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
    // Kill the group first, while its leader's pid is still ours.
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

} // namespace vantrel::tools

#include "tools/desk/TemporaryHome.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <unistd.h>

namespace vantrel::tools {

namespace {

std::optional<pid_t> processNumber(const std::string& name) {
    pid_t pid = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
    return error == std::errc() && end == name.data() + name.size() ? std::optional(pid) : std::nullopt;
}

// The X server and the bus pass this home to programs they start, and some of those leave their process
// group.
void endProcessesOf(const std::filesystem::path& home) {
    const std::string mark = "HOME=" + home.string() + '\0';
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", ignored)) {
        const std::optional<pid_t> pid = processNumber(entry.path().filename().string());
        if (!pid || *pid == getpid()) {
            continue;
        }
        std::ifstream file(entry.path() / "environ", std::ios::binary);
        const std::string environment{std::istreambuf_iterator<char>(file), {}};
        if (environment.starts_with(mark) || environment.find('\0' + mark) != std::string::npos) {
            kill(*pid, SIGKILL);
        }
    }
}

constexpr const char* namePrefix = "vantrel-desk-";
constexpr const char* ownerFile = "owner";

// A killed process could not remove its home; the kernel has ended the programs it started.
void removeAbandonedHomes() {
    std::error_code ignored;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::temp_directory_path(), ignored)) {
        if (!entry.path().filename().string().starts_with(namePrefix)) {
            continue;
        }
        std::string owner;
        std::ifstream(entry.path() / ownerFile) >> owner;
        const std::optional<pid_t> pid = processNumber(owner);
        if (pid && kill(*pid, 0) != 0 && errno == ESRCH) {
            std::filesystem::remove_all(entry.path(), ignored);
        }
    }
}

} // namespace

TemporaryHome::TemporaryHome() {
    removeAbandonedHomes();
    std::string name = (std::filesystem::temp_directory_path() / namePrefix).string() + "XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error(
            fmt::format("A temporary home cannot be created: {}.", std::strerror(errno)));
    }
    m_path = name;
    write(ownerFile, std::to_string(getpid()));
    for (const char* folder : {"config", "data", "state", "cache", "runtime", "log", "services"}) {
        std::filesystem::create_directory(m_path / folder);
    }
    std::filesystem::permissions(m_path / "runtime", std::filesystem::perms::owner_all);
    writeSettings("");
}

TemporaryHome::~TemporaryHome() {
    endProcessesOf(m_path);
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::filesystem::path TemporaryHome::logFile(const std::string& program) const {
    return m_path / "log" / (std::filesystem::path(program).filename().string() + ".log");
}

std::string TemporaryHome::logEnd(const std::string& program) const {
    constexpr std::size_t longest = 1500;
    std::ifstream file(logFile(program), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    return text.size() <= longest ? text : text.substr(text.size() - longest);
}

std::vector<std::string> TemporaryHome::environment() const {
    const std::string home = m_path.string();
    const char* path = std::getenv("PATH");
    std::vector<std::string> result{
        "HOME=" + home,
        "XDG_CONFIG_HOME=" + home + "/config",
        "XDG_DATA_HOME=" + home + "/data",
        "XDG_STATE_HOME=" + home + "/state",
        "XDG_CACHE_HOME=" + home + "/cache",
        "XDG_RUNTIME_DIR=" + home + "/runtime",
        // Never the machine's own.
        "DBUS_SYSTEM_BUS_ADDRESS=unix:path=" + home + "/runtime/no-system-bus",
        "XDG_CONFIG_DIRS=/etc/xdg",
        "XDG_DATA_DIRS=/usr/local/share:/usr/share",
        "XDG_SESSION_TYPE=x11",
        fmt::format("PATH={}", path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin"),
        "LANG=C.UTF-8",
        "USER=desk",
        "LOGNAME=desk",
        "SHELL=/bin/bash",
        "GSETTINGS_BACKEND=memory",
        "GIO_USE_VFS=local",
        "NO_AT_BRIDGE=1",
        "GTK_A11Y=none",
        "QT_ACCESSIBILITY=0",
        "QT_QPA_PLATFORM=xcb",
    };
    for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS", "TMPDIR"}) {
        if (const char* value = std::getenv(name); value != nullptr) {
            result.push_back(fmt::format("{}={}", name, value));
        }
    }
    return result;
}

void TemporaryHome::writeSettings(const std::string& more) const {
    write("config/vantrel/settings.conf", "hasOnboarded = true\nshowPanelWithoutTray = false\n" + more);
}

void TemporaryHome::write(const std::filesystem::path& relative, const std::string& content) const {
    const std::filesystem::path file = m_path / relative;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    if (!stream.flush()) {
        throw std::runtime_error(fmt::format("{} cannot be written.", file.string()));
    }
}

} // namespace vantrel::tools

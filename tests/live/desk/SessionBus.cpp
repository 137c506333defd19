#include "tests/live/desk/SessionBus.h"

#include "tests/live/desk/Waiting.h"

#include <fmt/format.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace vantrel::live {

namespace {

constexpr const char* configuration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <keep_umask/>
  <listen>unix:path={0}/runtime/{1}</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{0}/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

// xfwm4, xfce4-terminal and mousepad read their settings from this service.
constexpr const char* activated = "org.xfce.Xfconf.service";

bool accepts(const std::filesystem::path& socketFile) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = socketFile.string();
    if (path.size() >= sizeof address.sun_path) {
        throw std::runtime_error("The temporary folder's path is too long for a socket: " + path);
    }
    path.copy(address.sun_path, path.size());
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    // sockaddr_un is made to be passed as a sockaddr.
    const bool connected =
        handle >= 0 && connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    if (handle >= 0) {
        close(handle);
    }
    return connected;
}

} // namespace

SessionBus::SessionBus(const TemporaryHome& home, std::vector<std::string> environment,
                       const std::string& name)
    : m_address(fmt::format("unix:path={}/runtime/{}", home.path().string(), name)), m_process([&] {
          home.write(name + ".conf", fmt::format(fmt::runtime(configuration), home.path().string(), name));
          const std::filesystem::path service =
              std::filesystem::path("/usr/share/dbus-1/services") / activated;
          if (std::filesystem::exists(service) &&
              !std::filesystem::exists(home.path() / "services" / activated)) {
              std::filesystem::create_symlink(service, home.path() / "services" / activated);
          }
          environment.push_back("DBUS_SESSION_BUS_ADDRESS=" + m_address);
          return ChildProcess({.command = {"dbus-daemon", "--nofork", "--nopidfile",
                                           "--config-file=" + (home.path() / (name + ".conf")).string()},
                               .environment = std::move(environment),
                               .workingDirectory = home.path(),
                               .output = home.logFile("dbus-daemon"),
                               .passedDescriptor = std::nullopt});
      }()) {
    if (!waitUntil([&] { return accepts(home.path() / "runtime" / name) || !m_process.isRunning(); }) ||
        !m_process.isRunning()) {
        throw std::runtime_error("The session bus did not start: " + home.logEnd("dbus-daemon"));
    }
}

} // namespace vantrel::live

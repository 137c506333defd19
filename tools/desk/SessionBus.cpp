#include "tools/desk/SessionBus.h"

#include "tools/desk/ReadyPipe.h"

#include <fmt/format.h>
#include <stdexcept>
#include <utility>

namespace vantrel::tools {

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

} // namespace

SessionBus::SessionBus(const TemporaryHome& home, std::vector<std::string> environment,
                       const std::string& name)
    : m_address(fmt::format("unix:path={}/runtime/{}", home.path().string(), name)), m_home(home) {
    home.write(name + ".conf", fmt::format(fmt::runtime(configuration), home.path().string(), name));
    const std::filesystem::path service = std::filesystem::path("/usr/share/dbus-1/services") / activated;
    if (std::filesystem::exists(service) && !std::filesystem::exists(home.path() / "services" / activated)) {
        std::filesystem::create_symlink(service, home.path() / "services" / activated);
    }
    environment.push_back("DBUS_SESSION_BUS_ADDRESS=" + m_address);
    m_start = {.command = {"dbus-daemon", "--nofork", "--nopidfile", "--print-address=3",
                           "--config-file=" + (home.path() / (name + ".conf")).string()},
               .environment = std::move(environment),
               .workingDirectory = home.path(),
               .output = home.logFile("dbus-daemon"),
               .passedDescriptor = std::nullopt};
    start();
}

void SessionBus::end() {
    m_process.reset();
}

void SessionBus::start() {
    ReadyPipe pipe;
    m_start.passedDescriptor = pipe.writeEnd();
    m_process.emplace(m_start);
    if (!pipe.line()) {
        throw std::runtime_error("The session bus did not start: " + m_home.logEnd("dbus-daemon"));
    }
}

} // namespace vantrel::tools

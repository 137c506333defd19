#include "tools/desk/XServer.h"

#include "tools/desk/ReadyPipe.h"

#include <filesystem>
#include <stdexcept>

namespace vantrel::tools {

namespace {

// The setuid wrapper in /usr/bin refuses users without a console; the server itself needs none here.
constexpr const char* serverFile = "/usr/lib/xorg/Xorg";

constexpr const char* configuration = R"(Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoAddGPU" "false"
    Option "DontVTSwitch" "true"
    Option "BlankTime" "0"
    Option "StandbyTime" "0"
    Option "SuspendTime" "0"
    Option "OffTime" "0"
EndSection
Section "Device"
    Identifier "device"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 1-2000
    VertRefresh 1-200
EndSection
Section "Screen"
    Identifier "screen"
    Device "device"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Virtual 8192 4096
    EndSubSection
EndSection
)";

ChildProcess startServer(const TemporaryHome& home, const ReadyPipe& number) {
    home.write("xorg.conf", configuration);
    return ChildProcess(
        {.command = {std::filesystem::exists(serverFile) ? serverFile : "Xorg", "-displayfd", "3", "-config",
                     (home.path() / "xorg.conf").string(), "-logfile", home.logFile("xorg-server").string(),
                     "-noreset", "-nolisten", "tcp", "-novtswitch", "-sharevts"},
         .environment = home.environment(),
         .workingDirectory = home.path(),
         .output = home.logFile("xorg"),
         .passedDescriptor = number.writeEnd()});
}

} // namespace

XServer::XServer(const TemporaryHome& home)
    : m_process([&] {
          ReadyPipe pipe;
          ChildProcess process = startServer(home, pipe);
          const auto number = pipe.line();
          if (!number) {
              throw std::runtime_error("The X server did not start: " + home.logEnd("xorg"));
          }
          m_display = ":" + *number;
          return process;
      }()) {}

} // namespace vantrel::tools

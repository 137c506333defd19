#include "tests/live/desk/XServer.h"

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace vantrel::live {

namespace {

// The set-uid wrapper in /usr/bin refuses users without a console; the server itself needs none here.
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

class Pipe {
public:
    Pipe() {
        if (pipe2(m_ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("No pipe can be made.");
        }
    }

    ~Pipe() {
        close(m_ends[0]);
        closeWriteEnd();
    }

    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    [[nodiscard]] int readEnd() const { return m_ends[0]; }

    [[nodiscard]] int writeEnd() const { return m_ends[1]; }

    void closeWriteEnd() {
        if (m_ends[1] >= 0) {
            close(m_ends[1]);
            m_ends[1] = -1;
        }
    }

private:
    std::array<int, 2> m_ends{-1, -1};
};

ChildProcess startServer(const TemporaryHome& home, const Pipe& number) {
    home.write("xorg.conf", configuration);
    return ChildProcess(
        {.command = {programFile(serverFile) ? serverFile : "Xorg", "-displayfd", "3", "-config",
                     (home.path() / "xorg.conf").string(), "-logfile", home.logFile("xorg-server").string(),
                     "-noreset", "-nolisten", "tcp", "-novtswitch", "-sharevts"},
         .environment = home.environment(),
         .workingDirectory = home.path(),
         .output = home.logFile("xorg"),
         .passedDescriptor = number.writeEnd()});
}

std::string readNumber(Pipe& number, const TemporaryHome& home) {
    number.closeWriteEnd();
    std::string text;
    pollfd readable{.fd = number.readEnd(), .events = POLLIN, .revents = 0};
    while (!text.ends_with('\n') && poll(&readable, 1, 30'000) > 0) {
        std::array<char, 16> chunk{};
        const ssize_t count = read(number.readEnd(), chunk.data(), chunk.size());
        if (count <= 0) {
            break;
        }
        text.append(chunk.data(), static_cast<std::size_t>(count));
    }
    if (!text.ends_with('\n')) {
        throw std::runtime_error("The X server did not start: " + home.logEnd("xorg"));
    }
    text.pop_back();
    return ":" + text;
}

} // namespace

XServer::XServer(const TemporaryHome& home)
    : m_process([&] {
          Pipe number;
          ChildProcess process = startServer(home, number);
          m_display = readNumber(number, home);
          return process;
      }()) {}

} // namespace vantrel::live

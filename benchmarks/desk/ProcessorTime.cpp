#include "benchmarks/desk/ProcessorTime.h"

#include <ctime>
#include <fmt/format.h>
#include <fstream>
#include <sys/socket.h>
#include <xcb/xcb.h>

namespace vantrel::bench {

double ownProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double serverProcessorTime(const std::string& display) {
    xcb_connection_t* const connection = xcb_connect(display.c_str(), nullptr);
    ucred peer{};
    socklen_t size = sizeof peer;
    const int error = getsockopt(xcb_get_file_descriptor(connection), SOL_SOCKET, SO_PEERCRED, &peer, &size);
    xcb_disconnect(connection);
    double nanoseconds = 0;
    if (error == 0) {
        std::ifstream(fmt::format("/proc/{}/schedstat", peer.pid)) >> nanoseconds;
    }
    return nanoseconds * 1e-9;
}

} // namespace vantrel::bench

#include "benchmarks/desk/DistantServer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <deque>
#include <fmt/format.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace vantrel::bench {

namespace {

using Clock = std::chrono::steady_clock;

// X displays on the network listen from this port on; numbers this high are nobody's.
constexpr int firstPort = 6000;
constexpr int firstNumber = 700;
constexpr int lastNumber = 800;

int connectTo(const std::string& display) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/tmp/.X11-unix/X" + display.substr(1);
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        close(server);
        throw std::runtime_error(fmt::format("{}: {}.", path, std::strerror(errno)));
    }
    return server;
}

bool writeAll(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (written <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Empty at the end of the stream.
std::string readSome(int socket) {
    std::array<char, 65536> bytes{};
    const ssize_t count = read(socket, bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}

} // namespace

DistantServer::DistantServer(const std::string& display) : m_server(connectTo(display)) {
    m_listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    for (int number = firstNumber; m_display.empty() && number <= lastNumber; ++number) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(static_cast<std::uint16_t>(firstPort + number));
        if (bind(m_listening, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
            listen(m_listening, 1) == 0) {
            m_display = fmt::format("127.0.0.1:{}", number);
        }
    }
    if (m_display.empty()) {
        close(m_listening);
        close(m_server);
        throw std::runtime_error("No port is free for a delayed connection.");
    }
    m_thread = std::thread([this] { relay(); });
}

DistantServer::~DistantServer() {
    m_isClosing = true;
    m_thread.join();
    close(m_listening);
    close(m_server);
}

long DistantServer::roundTrips(double seconds) {
    return std::lround(seconds / std::chrono::duration<double>(delay).count());
}

void DistantServer::relay() {
    struct Late {
        Clock::time_point due;
        std::string bytes;
    };
    constexpr int tickMilliseconds = 1;
    std::deque<Late> answers;
    int client = -1;
    bool isOpen = true;
    while (isOpen && !m_isClosing) {
        std::array<pollfd, 2> readable{
            {{.fd = client < 0 ? m_listening : client, .events = POLLIN, .revents = 0},
             {.fd = m_server, .events = POLLIN, .revents = 0}}};
        poll(readable.data(), readable.size(), tickMilliseconds);
        if (readable[0].revents != 0 && client < 0) {
            client = accept4(m_listening, nullptr, nullptr, SOCK_CLOEXEC);
            // Nothing may be held back but by us.
            const int yes = 1;
            setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
        } else if (readable[0].revents != 0) {
            const std::string request = readSome(client);
            isOpen = !request.empty() && writeAll(m_server, request);
        }
        if (readable[1].revents != 0) {
            answers.push_back({.due = Clock::now() + delay, .bytes = readSome(m_server)});
            isOpen = isOpen && !answers.back().bytes.empty();
        }
        while (isOpen && !answers.empty() && answers.front().due <= Clock::now()) {
            isOpen = writeAll(client, answers.front().bytes);
            answers.pop_front();
        }
    }
    if (client >= 0) {
        close(client);
    }
}

} // namespace vantrel::bench

#include "benchmarks/desk/DistantServer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <fmt/format.h>
#include <iterator>
#include <memory>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vantrel::bench {

namespace {

using Clock = std::chrono::steady_clock;

// Network X displays listen on this port plus their number; nobody uses numbers this high.
constexpr int firstPort = 6000;
constexpr int firstNumber = 700;
constexpr int lastNumber = 800;

// -1 if nothing responds.
int connectTo(const std::string& display) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/tmp/.X11-unix/X" + display.substr(1);
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        close(server);
        return -1;
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

// One client, its connection to the server, and the delayed replies.
class DistantServer::Line {
public:
    Line(int client, int server) : m_client(client), m_server(server) {
        // Only we may delay data.
        const int yes = 1;
        setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    }

    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    ~Line() {
        close(m_client);
        close(m_server);
    }

    [[nodiscard]] std::array<pollfd, 2> watched() const {
        return {{{.fd = m_client, .events = POLLIN, .revents = 0},
                 {.fd = m_server, .events = POLLIN, .revents = 0}}};
    }

    // False once either side has hung up.
    [[nodiscard]] bool carry(const pollfd& client, const pollfd& server) {
        if (client.revents != 0) {
            const std::string request = readSome(m_client);
            if (request.empty() || !writeAll(m_server, request)) {
                return false;
            }
        }
        if (server.revents != 0) {
            m_answers.push_back({.due = Clock::now() + delay, .bytes = readSome(m_server)});
            if (m_answers.back().bytes.empty()) {
                return false;
            }
        }
        bool isOpen = true;
        while (isOpen && !m_answers.empty() && m_answers.front().due <= Clock::now()) {
            isOpen = writeAll(m_client, m_answers.front().bytes);
            m_answers.pop_front();
        }
        return isOpen;
    }

private:
    struct Late {
        Clock::time_point due;
        std::string bytes;
    };

    int m_client;
    int m_server;
    std::deque<Late> m_answers;
};

DistantServer::DistantServer(std::string display) : m_server(std::move(display)) {
    m_listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    for (int number = firstNumber; m_display.empty() && number <= lastNumber; ++number) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(static_cast<std::uint16_t>(firstPort + number));
        if (bind(m_listening, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
            listen(m_listening, SOMAXCONN) == 0) {
            m_display = fmt::format("127.0.0.1:{}", number);
        }
    }
    if (m_display.empty()) {
        close(m_listening);
        throw std::runtime_error("No port is free for a delayed connection.");
    }
    m_thread = std::thread([this] { relay(); });
}

DistantServer::~DistantServer() {
    m_isClosing = true;
    m_thread.join();
    close(m_listening);
}

long DistantServer::roundTrips(double seconds) {
    return std::lround(seconds / std::chrono::duration<double>(delay).count());
}

void DistantServer::relay() {
    constexpr int tickMilliseconds = 1;
    std::vector<std::unique_ptr<Line>> lines;
    while (!m_isClosing) {
        std::vector<pollfd> watched{{.fd = m_listening, .events = POLLIN, .revents = 0}};
        for (const auto& line : lines) {
            std::ranges::copy(line->watched(), std::back_inserter(watched));
        }
        poll(watched.data(), watched.size(), tickMilliseconds);
        for (std::size_t i = lines.size(); i-- > 0;) {
            if (!lines[i]->carry(watched[1 + 2 * i], watched[2 + 2 * i])) {
                lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
        if (watched.front().revents != 0) {
            const int client = accept4(m_listening, nullptr, nullptr, SOCK_CLOEXEC);
            // Disconnected at once if the server does not accept another client.
            if (const int server = connectTo(m_server); server >= 0) {
                lines.push_back(std::make_unique<Line>(client, server));
            } else {
                close(client);
            }
        }
    }
}

} // namespace vantrel::bench

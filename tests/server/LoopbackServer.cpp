#include "tests/server/LoopbackServer.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <fmt/format.h>
#include <netinet/in.h>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace vantrel::testing {

namespace {

constexpr const char* lineEnd = "\r\n";

// None until the request is complete.
std::optional<LoopbackServer::Request> parse(const std::string& bytes) {
    const auto headEnd = bytes.find("\r\n\r\n");
    if (headEnd == std::string::npos) {
        return std::nullopt;
    }
    LoopbackServer::Request request;
    auto at = bytes.find(lineEnd);
    const auto firstLine = bytes.substr(0, at);
    const auto methodEnd = firstLine.find(' ');
    request.method = firstLine.substr(0, methodEnd);
    request.path = firstLine.substr(methodEnd + 1, firstLine.rfind(' ') - methodEnd - 1);
    while (at < headEnd) {
        const auto begin = at + 2;
        at = bytes.find(lineEnd, begin);
        const auto line = bytes.substr(begin, at - begin);
        const auto colon = line.find(": ");
        auto name = line.substr(0, colon);
        std::ranges::transform(name, name.begin(),
                               [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        request.headers[name] = colon == std::string::npos ? "" : line.substr(colon + 2);
    }
    std::size_t length = 0;
    if (const auto found = request.headers.find("content-length"); found != request.headers.end()) {
        std::from_chars(found->second.data(), found->second.data() + found->second.size(), length);
    }
    request.body = bytes.substr(headEnd + 4);
    return request.body.size() < length ? std::nullopt : std::optional(request);
}

} // namespace

LoopbackServer::LoopbackServer(Handler handler)
    : m_handler(std::move(handler)), m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)),
      m_stop(::eventfd(0, EFD_CLOEXEC)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener, general, size) != 0 || ::listen(m_listener, SOMAXCONN) != 0 ||
        ::getsockname(m_listener, general, &size) != 0) {
        throw std::runtime_error("cannot listen on the loopback interface");
    }
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { serve(); });
}

LoopbackServer::~LoopbackServer() {
    ::eventfd_write(m_stop, 1);
    m_thread.join();
    ::close(m_listener);
    ::close(m_stop);
}

std::string LoopbackServer::url() const {
    return fmt::format("http://127.0.0.1:{}", m_port);
}

std::vector<LoopbackServer::Request> LoopbackServer::requests() const {
    const std::scoped_lock lock(m_mutex);
    return m_requests;
}

LoopbackServer::Answer LoopbackServer::answer(int status, const std::string& body,
                                              const std::string& headers) {
    return {.bytes = fmt::format("HTTP/1.1 {} Status\r\n{}Content-Length: {}\r\nConnection: close\r\n\r\n{}",
                                 status, headers, body.size(), body)};
}

void LoopbackServer::serve() {
    while (waitFor(m_listener, POLLIN)) {
        const int connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection >= 0) {
            attend(connection);
            ::close(connection);
        }
    }
}

void LoopbackServer::attend(int connection) {
    std::string received;
    std::optional<Request> request;
    std::array<char, 4096> buffer{};
    while (!request) {
        if (!waitFor(connection, POLLIN)) {
            return;
        }
        const auto count = ::recv(connection, buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            return;
        }
        received.append(buffer.data(), static_cast<std::size_t>(count));
        request = parse(received);
    }
    {
        const std::scoped_lock lock(m_mutex);
        m_requests.push_back(*request);
    }
    const auto answer = m_handler(*request);
    if (!send(connection, answer.bytes)) {
        return;
    }
    if (answer.then == Answer::Then::hold) {
        // A closed connection is readable too.
        static_cast<void>(waitFor(connection, POLLIN));
    }
    while (answer.then == Answer::Then::repeat && send(connection, answer.repeated)) {
        // Not at full speed.
        ::usleep(10'000);
    }
}

bool LoopbackServer::waitFor(int descriptor, short events) const {
    std::array<pollfd, 2> waits{pollfd{descriptor, events, 0}, pollfd{m_stop, POLLIN, 0}};
    return ::poll(waits.data(), waits.size(), -1) > 0 && waits[1].revents == 0;
}

bool LoopbackServer::send(int connection, const std::string& bytes) const {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        if (!waitFor(connection, POLLOUT)) {
            return false;
        }
        const auto count =
            ::send(connection, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count < 0) {
            return false;
        }
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

} // namespace vantrel::testing

// A small HTTP server on the loopback interface, on a thread of its own, that replies as a test wants:
// correctly, badly, slowly or not at all.
#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vantrel::testing {

class LoopbackServer {
public:
    struct Request {
        std::string method;
        // With the query.
        std::string path;
        // Names in lower case.
        std::map<std::string, std::string> headers;
        std::string body;
    };

    struct Answer {
        enum class Then : std::uint8_t {
            close,
            // Sends nothing more until the client or the server ends the connection.
            hold,
            // Sends `repeated` again and again until then.
            repeat,
        };

        // Sent byte for byte, status line and headers included.
        std::string bytes;
        Then then = Then::close;
        std::string repeated{};
    };

    // Called on the server's thread, one request at a time.
    using Handler = std::function<Answer(const Request&)>;

    // Listens on a free port.
    explicit LoopbackServer(Handler handler);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    // "http://127.0.0.1:PORT", without a slash at the end.
    [[nodiscard]] std::string url() const;

    // The requests so far.
    [[nodiscard]] std::vector<Request> requests() const;

    // A well-formed reply; `headers` are lines ending in "\r\n".
    [[nodiscard]] static Answer answer(int status, const std::string& body = {},
                                       const std::string& headers = {});

private:
    void serve();
    void attend(int connection);
    // False when the server shall end or the client is gone.
    [[nodiscard]] bool waitFor(int descriptor, short events) const;
    [[nodiscard]] bool send(int connection, const std::string& bytes) const;

    Handler m_handler;
    int m_listener = -1;
    // Becomes readable when the server shall end.
    int m_stop = -1;
    int m_port = 0;
    mutable std::mutex m_mutex;
    std::vector<Request> m_requests;
    std::thread m_thread;
};

} // namespace vantrel::testing

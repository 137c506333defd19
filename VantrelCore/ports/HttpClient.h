// Port: requests over HTTP to the vendor's servers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

struct HttpHeader {
    std::string name;
    std::string value;

    bool operator==(const HttpHeader&) const = default;
};

enum class HttpMethod : std::uint8_t { get, post };

struct HttpRequest {
    HttpMethod method = HttpMethod::get;
    // https; plain http goes to this machine itself only.
    std::string url;
    std::vector<HttpHeader> headers{};
    // Sent with `post` only.
    std::string body{};
    // From the start to the last byte of the answer.
    double timeoutSeconds = 60;
    // A longer body is refused, not cut.
    std::size_t largestBody = std::size_t{1} << 20;

    bool operator==(const HttpRequest&) const = default;
};

// What the server answered, whatever its status.
struct HttpResponse {
    int status = 0;
    std::string body;

    bool operator==(const HttpResponse&) const = default;
};

// Why there is no answer.
struct HttpFailure {
    enum class Kind : std::uint8_t {
        // The request itself may not be sent: no URL, or not one that is protected.
        refused,
        // No such host, no network, nobody listens.
        unreachable,
        // The server could not prove that it is the one.
        untrusted,
        timedOut,
        // It led to another host, away from TLS or in circles.
        redirected,
        tooLarge,
        // It is not HTTP, or broke off.
        broken,
    };

    Kind kind = Kind::broken;
    // For people: what went wrong, without the URL.
    std::string sentence;

    bool operator==(const HttpFailure&) const = default;
};

using HttpResult = std::expected<HttpResponse, HttpFailure>;

// A request under way. Destroying it on the main thread ends it; its result is then never told.
class HttpExchange {
public:
    HttpExchange() = default;
    HttpExchange(const HttpExchange&) = delete;
    HttpExchange& operator=(const HttpExchange&) = delete;
    virtual ~HttpExchange() = default;
};

// Used on the main thread. The server proves who it is (TLS), nothing is kept from one request to the next
// (no cache, no cookies), and a redirection is followed only for `get` and only on the same server.
class HttpClient {
public:
    using Done = std::function<void(const HttpResult&)>;

    HttpClient() = default;
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;
    virtual ~HttpClient() = default;

    // Sends the request and calls `done` once on the main thread, never before this returns. `done` may
    // destroy the exchange.
    [[nodiscard]] virtual std::unique_ptr<HttpExchange> send(const HttpRequest& request, Done done) = 0;
};

} // namespace vantrel

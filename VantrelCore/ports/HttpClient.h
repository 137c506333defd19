// Port: HTTP requests to the vendor's servers.
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
    // https, or plain http to this machine.
    std::string url;
    std::vector<HttpHeader> headers{};
    // Sent with `post` only.
    std::string body{};
    // From start to the last byte of the response.
    double timeoutSeconds = 60;
    // A longer response body is refused, not truncated.
    std::size_t largestBody = std::size_t{1} << 20;

    bool operator==(const HttpRequest&) const = default;
};

// The server's response, whatever its status.
struct HttpResponse {
    int status = 0;
    std::string body;

    bool operator==(const HttpResponse&) const = default;
};

// Why there is no response.
struct HttpFailure {
    enum class Kind : std::uint8_t {
        // The request was not sent: the URL is invalid or insecure.
        refused,
        // Unknown host, no network, or connection refused.
        unreachable,
        // The server's identity could not be verified.
        untrusted,
        timedOut,
        // Redirected to another host, away from TLS, or in a loop.
        redirected,
        tooLarge,
        // Not HTTP, or the connection broke off.
        broken,
    };

    Kind kind = Kind::broken;
    // For the user: what went wrong, without the URL. In English, translated when it is shown.
    std::string sentence;

    bool operator==(const HttpFailure&) const = default;
};

using HttpResult = std::expected<HttpResponse, HttpFailure>;

// A request in flight. Destroying it on the main thread cancels it; `done` is then never called.
class HttpExchange {
public:
    HttpExchange() = default;
    HttpExchange(const HttpExchange&) = delete;
    HttpExchange& operator=(const HttpExchange&) = delete;
    virtual ~HttpExchange() = default;
};

// Used on the main thread. Verifies the server (TLS), keeps nothing between requests (no cache, no cookies),
// and follows redirects only for `get` and only on the same server.
class HttpClient {
public:
    using Done = std::function<void(const HttpResult&)>;

    HttpClient() = default;
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;
    virtual ~HttpClient() = default;

    // Sends the request and calls `done` once on the main thread, always after this returns. `done` may
    // destroy the exchange.
    [[nodiscard]] virtual std::unique_ptr<HttpExchange> send(const HttpRequest& request, Done done) = 0;
};

} // namespace vantrel

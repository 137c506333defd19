// Sends HTTP requests with Qt Network.
#pragma once

#include "VantrelCore/ports/HttpClient.h"

#include <string>

namespace vantrel {

// Each request has its own connection; between requests, no connection stays open and no thread waits. Qt 6.4
// sometimes takes a truncated chunked body for a complete one, so the content itself must show where it ends.
class QtHttpClient final : public HttpClient {
public:
    // `userAgent` identifies this program, for example "vantrel/1.2".
    explicit QtHttpClient(std::string userAgent);

    // The library that encrypts connections, or that there is none; for the log. Without one, no server can
    // be reached.
    [[nodiscard]] static std::string tlsSupport();

    [[nodiscard]] std::unique_ptr<HttpExchange> send(const HttpRequest& request, Done done) override;

private:
    std::string m_userAgent;
};

} // namespace vantrel

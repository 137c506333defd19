// Requests over HTTP by Qt Network.
#pragma once

#include "VantrelCore/ports/HttpClient.h"

#include <string>

namespace vantrel {

// Each request has its own connection; between requests nothing stays open and no thread waits. A body in
// chunks that breaks off is at times taken for whole by Qt 6.4: what a body holds has to say where it ends.
class QtHttpClient final : public HttpClient {
public:
    // `userAgent` tells the server who asks: "vantrel/1.2".
    explicit QtHttpClient(std::string userAgent);

    [[nodiscard]] std::unique_ptr<HttpExchange> send(const HttpRequest& request, Done done) override;

private:
    std::string m_userAgent;
};

} // namespace vantrel

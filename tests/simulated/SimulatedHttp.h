// Servers behind the HTTP port, scripted by the test, on virtual time.
#pragma once

#include "VantrelCore/ports/HttpClient.h"
#include "VantrelCore/ports/MainQueue.h"

#include <functional>
#include <utility>
#include <vector>

namespace vantrel::simulated {

class SimulatedHttp final : public HttpClient {
public:
    explicit SimulatedHttp(MainQueue& queue) : m_queue(queue) {}

    // Computes the response. The network is down while this is empty.
    std::function<HttpResult(const HttpRequest&)> server;
    double answerSeconds = 0.1;
    // All requests so far, oldest first.
    std::vector<HttpRequest> requests;

    [[nodiscard]] std::unique_ptr<HttpExchange> send(const HttpRequest& request, Done done) override {
        requests.push_back(request);
        return std::make_unique<Exchange>(
            m_queue.after(answerSeconds, [this, request, done = std::move(done)] {
                done(server ? server(request)
                            : std::unexpected(HttpFailure{HttpFailure::Kind::unreachable,
                                                          "The server cannot be reached."}));
            }));
    }

private:
    class Exchange final : public HttpExchange {
    public:
        explicit Exchange(std::unique_ptr<ScheduledWork> answer) : m_answer(std::move(answer)) {}

    private:
        std::unique_ptr<ScheduledWork> m_answer;
    };

    MainQueue& m_queue;
};

} // namespace vantrel::simulated

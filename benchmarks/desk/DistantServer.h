// A private X server as if it stood far away: what it answers arrives late. On such a connection the time of
// an exchange tells how often it waited for an answer, whoever did the waiting and however.
#pragma once

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace vantrel::bench {

class DistantServer {
public:
    static constexpr std::chrono::milliseconds delay{150};

    // For any number of clients, of the server at `display`. Throws std::runtime_error with a sentence.
    explicit DistantServer(std::string display);
    ~DistantServer();
    DistantServer(const DistantServer&) = delete;
    DistantServer& operator=(const DistantServer&) = delete;

    // Where to connect to.
    [[nodiscard]] const std::string& display() const { return m_display; }

    [[nodiscard]] static long roundTrips(double seconds);

private:
    class Line;

    void relay();

    std::string m_server;
    std::string m_display;
    int m_listening = -1;
    std::atomic<bool> m_isClosing = false;
    std::thread m_thread;
};

} // namespace vantrel::bench

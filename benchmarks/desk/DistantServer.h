// Makes a private X server seem far away by delaying its replies. The duration of an exchange then shows how
// many round trips it needed, wherever the waiting happened.
#pragma once

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace vantrel::bench {

class DistantServer {
public:
    static constexpr std::chrono::milliseconds delay{150};

    // For any number of clients of the server at `display`. Throws std::runtime_error with a readable
    // sentence.
    explicit DistantServer(std::string display);
    ~DistantServer();
    DistantServer(const DistantServer&) = delete;
    DistantServer& operator=(const DistantServer&) = delete;

    // The display to connect to.
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

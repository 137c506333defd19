#include "Vantrel/platform/x11/WindowCapture.h"

#include "Vantrel/platform/posix/ReportedThread.h"
#include "Vantrel/platform/posix/ThreadPriority.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <map>
#include <optional>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace vantrel {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds interval{2'000};
// After a window was redirected, its program draws what was covered.
constexpr std::chrono::milliseconds firstDelay{150};

} // namespace

// What one connection follows.
class WindowCapture::Round {
public:
    Round(std::unique_ptr<CaptureConnection> connection, const Sink& sink)
        : m_connection(std::move(connection)), m_sink(sink) {}

    [[nodiscard]] bool isConnected() const { return m_connection->isConnected(); }
    [[nodiscard]] int descriptor() const { return m_connection->descriptor(); }

    void follow(const std::vector<WindowID>& windows) {
        std::erase_if(m_sources, [&](const auto& source) {
            const bool isGone = std::ranges::find(windows, source.second.window.id()) == windows.end();
            if (isGone) {
                m_connection->forget(source.second.window);
            }
            return isGone;
        });
        for (const WindowID id : windows) {
            const X11Window window = X11Window::of(id);
            if (m_sources.try_emplace(window.window, Source{window, true, Clock::now() + firstDelay})
                    .second) {
                m_connection->watch(window);
            }
        }
    }

    // Takes at most one picture. Returns how long nothing is to be done; none for until something changes.
    [[nodiscard]] std::optional<std::chrono::milliseconds> work() {
        for (const xcb_window_t window : m_connection->takeChanged()) {
            if (const auto source = m_sources.find(window); source != m_sources.end()) {
                source->second.hasChanged = true;
            }
        }
        Source* next = nullptr;
        for (auto& [window, source] : m_sources) {
            if (source.hasChanged && (next == nullptr || source.due < next->due)) {
                next = &source;
            }
        }
        if (next == nullptr) {
            return std::nullopt;
        }
        const auto now = Clock::now();
        if (next->due > now) {
            return std::chrono::ceil<std::chrono::milliseconds>(next->due - now);
        }
        next->hasChanged = false;
        next->due = now + interval;
        if (auto picture = m_connection->capture(next->window, longestSide)) {
            m_sink(next->window.id(), std::move(*picture));
        }
        return std::chrono::milliseconds(0);
    }

private:
    struct Source {
        X11Window window;
        bool hasChanged = true;
        // Not before.
        Clock::time_point due;
    };

    std::unique_ptr<CaptureConnection> m_connection;
    const Sink& m_sink;
    std::map<xcb_window_t, Source> m_sources;
};

WindowCapture::~WindowCapture() {
    if (m_thread.joinable()) {
        {
            const std::scoped_lock lock(m_mutex);
            m_isStopping = true;
        }
        wake();
        m_thread.join();
    }
}

void WindowCapture::follow(std::vector<WindowID> windows) {
    const bool isIdle = windows.empty();
    {
        const std::scoped_lock lock(m_mutex);
        m_wanted = std::move(windows);
    }
    if (m_thread.joinable()) {
        wake();
    } else if (!isIdle) {
        start();
    }
}

void WindowCapture::start() {
    m_news = posix::FileDescriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!m_news.isOpen()) {
        return;
    }
    // Signals are for the main thread.
    sigset_t all;
    sigset_t previous;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &previous);
    m_thread = posix::reportedThread([this] { run(); });
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}

void WindowCapture::wake() const {
    const std::uint64_t one = 1;
    // Fails only when the thread has not yet taken earlier news.
    [[maybe_unused]] const auto written = write(m_news.get(), &one, sizeof one);
}

void WindowCapture::run() {
    posix::takePriority(WorkPriority::utility);
    std::optional<Round> round;
    std::vector<WindowID> followed;
    for (;;) {
        std::vector<WindowID> wanted;
        {
            const std::scoped_lock lock(m_mutex);
            if (m_isStopping) {
                return;
            }
            wanted = m_wanted;
        }
        if (wanted.empty() || (round && !round->isConnected())) {
            round.reset();
        }
        if (wanted != followed) {
            followed = wanted;
            if (auto connection =
                    !round && !wanted.empty() ? CaptureConnection::open(m_displayName) : nullptr) {
                round.emplace(std::move(connection), m_sink);
            }
            if (round) {
                round->follow(wanted);
            }
        }
        const auto pause = round ? round->work() : std::nullopt;
        std::array<pollfd, 2> sources{
            {{m_news.get(), POLLIN, 0}, {round ? round->descriptor() : -1, POLLIN, 0}}};
        poll(sources.data(), sources.size(), pause ? static_cast<int>(pause->count()) : -1);
        std::uint64_t news = 0;
        [[maybe_unused]] const auto taken = read(m_news.get(), &news, sizeof news);
    }
}

} // namespace vantrel

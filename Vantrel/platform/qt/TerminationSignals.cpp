#include "Vantrel/platform/qt/TerminationSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace vantrel {

namespace {

constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

// A signal handler may do little more than write(2), so it notifies the event loop through a pipe.
std::array<int, 2> signalPipe{-1, -1};
std::array<struct sigaction, handledSignals.size()> formerActions{};

void notifyEventLoop(int /*signal*/) {
    const int before = errno;
    const char byte = 0;
    // If the pipe is full, the loop is already notified.
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
    errno = before;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> handler) {
    // macOS has no pipe2.
    if (pipe(signalPipe.data()) != 0) {
        return;
    }
    for (const int end : signalPipe) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    m_notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [handler = std::move(handler)] {
                         std::array<char, 16> received{};
                         while (read(signalPipe[0], received.data(), received.size()) > 0) {
                         }
                         handler();
                     });
    for (std::size_t i = 0; i < handledSignals.size(); ++i) {
        struct sigaction action{};
        action.sa_handler = notifyEventLoop;
        action.sa_flags = SA_RESTART;
        sigaction(handledSignals[i], nullptr, &formerActions[i]);
        if (formerActions[i].sa_handler != SIG_IGN) {
            sigaction(handledSignals[i], &action, nullptr);
        }
    }
}

TerminationSignals::~TerminationSignals() {
    if (!m_notifier) {
        return;
    }
    for (std::size_t i = 0; i < handledSignals.size(); ++i) {
        sigaction(handledSignals[i], &formerActions[i], nullptr);
    }
    m_notifier.reset();
    close(signalPipe[0]);
    close(signalPipe[1]);
}

} // namespace vantrel

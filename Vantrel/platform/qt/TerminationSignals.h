// Delivers SIGTERM, SIGINT and SIGHUP as main loop events.
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace vantrel {

// Only one may exist at a time. Signals that were already ignored at start (nohup) stay ignored. The
// destructor restores the previous handlers.
class TerminationSignals {
public:
    // Calls `handler` from the event loop.
    explicit TerminationSignals(std::function<void()> handler);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace vantrel

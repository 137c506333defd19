// SIGTERM, SIGINT and SIGHUP as ordinary events of the main loop.
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace vantrel {

// One at a time. A signal that the starter of the process had ignored (nohup) stays ignored; the former
// dispositions come back when it is destroyed.
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

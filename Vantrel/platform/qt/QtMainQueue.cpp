#include "Vantrel/platform/qt/QtMainQueue.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

enum class Repeat : std::uint8_t { once, forever };

// From this interval on, timers may be 5% late, so that the system can combine wake-ups.
constexpr double coarseFromSeconds = 5;

// About 23 days: Qt counts milliseconds in an int.
constexpr double longestSeconds = 2'000'000;

class TimedWork final : public ScheduledWork {
public:
    TimedWork(double seconds, Repeat repeat, std::function<void()> work)
        : m_work(std::make_shared<std::function<void()>>(std::move(work))) {
        const double bounded = std::isnan(seconds) ? 0 : std::clamp(seconds, 0.0, longestSeconds);
        auto interval = std::chrono::milliseconds(std::llround(std::ceil(bounded * 1000)));
        if (repeat == Repeat::forever) {
            interval = std::max(interval, std::chrono::milliseconds(1));
        }
        m_timer.setSingleShot(repeat == Repeat::once);
        m_timer.setTimerType(bounded >= coarseFromSeconds ? Qt::CoarseTimer : Qt::PreciseTimer);
        // The work may destroy this object while it runs, so the call keeps the function alive.
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer,
                         [work = m_work] { (*std::shared_ptr(work))(); });
        m_timer.start(interval);
    }

    void cancel() override { m_timer.stop(); }

private:
    std::shared_ptr<std::function<void()>> m_work;
    QTimer m_timer;
};

} // namespace

std::function<void()> QtMainQueue::guarded(std::function<void()> work) const {
    return [log = m_log, work = std::move(work)] { ErrorBoundary::run("main queue", log, work); };
}

void QtMainQueue::post(std::function<void()> work) {
    QMetaObject::invokeMethod(&m_mainThread, guarded(std::move(work)), Qt::QueuedConnection);
}

std::unique_ptr<ScheduledWork> QtMainQueue::after(double seconds, std::function<void()> work) {
    return std::make_unique<TimedWork>(seconds, Repeat::once, guarded(std::move(work)));
}

std::unique_ptr<ScheduledWork> QtMainQueue::every(double seconds, std::function<void()> work) {
    return std::make_unique<TimedWork>(seconds, Repeat::forever, guarded(std::move(work)));
}

} // namespace vantrel

#include "Vantrel/platform/qt/QtMainQueue.h"

#include <QCoreApplication>
#include <QEvent>
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

void QtMainQueue::Posted::add(std::function<void()> work) {
    auto event = std::make_unique<QEvent>(QEvent::User);
    {
        const std::scoped_lock lock(m_mutex);
        m_work.push_back(std::move(work));
    }
    QCoreApplication::postEvent(this, event.release());
}

bool QtMainQueue::Posted::event(QEvent* event) {
    std::function<void()> work;
    {
        // Before the first look at the event, which another thread may have made.
        const std::scoped_lock lock(m_mutex);
        if (event->type() == QEvent::User) {
            work = std::move(m_work.front());
            m_work.pop_front();
        }
    }
    if (!work) {
        return QObject::event(event);
    }
    // It may destroy the queue.
    work();
    return true;
}

std::function<void()> QtMainQueue::guarded(std::function<void()> work) const {
    return [log = m_log, work = std::move(work)] { ErrorBoundary::run("main queue", log, work); };
}

void QtMainQueue::post(std::function<void()> work) {
    m_posted.add(guarded(std::move(work)));
}

std::unique_ptr<ScheduledWork> QtMainQueue::after(double seconds, std::function<void()> work) {
    return std::make_unique<TimedWork>(seconds, Repeat::once, guarded(std::move(work)));
}

std::unique_ptr<ScheduledWork> QtMainQueue::every(double seconds, std::function<void()> work) {
    return std::make_unique<TimedWork>(seconds, Repeat::forever, guarded(std::move(work)));
}

} // namespace vantrel

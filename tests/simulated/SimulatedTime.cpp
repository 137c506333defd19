#include "tests/simulated/SimulatedTime.h"

#include "VantrelCore/stores/UserEdit.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace vantrel::simulated {

class SimulatedTime::Worker {
public:
    explicit Worker(SimulatedTime& owner) : time(owner), thread([this] { loop(); }) {}

    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    ~Worker() {
        work = nullptr;
        baton.release();
        thread.join();
    }

    // The current thread's worker; null on the main thread.
    static Worker*& current() {
        thread_local Worker* worker = nullptr;
        return worker;
    }

    SimulatedTime& time;
    std::function<void()> work;
    std::binary_semaphore baton{0};
    std::thread thread;

private:
    void loop() {
        current() = this;
        for (;;) {
            baton.acquire();
            if (!work) {
                return;
            }
            std::exchange(work, nullptr)();
            time.m_idleWorkers.push_back(this);
            --time.m_busyWorkers;
            time.m_baton.release();
        }
    }
};

// Cancellable work on the agenda.
class SimulatedTime::Handle final : public ScheduledWork {
public:
    Handle(SimulatedTime& time, std::function<void()> work, std::optional<double> interval)
        : m_state(std::make_shared<State>(State{std::move(work), interval})), m_time(time) {}

    ~Handle() override { m_state->work = nullptr; }

    void cancel() override { m_state->work = nullptr; }

    void scheduleIn(double seconds) { schedule(m_time, m_state, seconds); }

private:
    struct State {
        std::function<void()> work;
        std::optional<double> interval;
    };

    static void schedule(SimulatedTime& time, const std::shared_ptr<State>& state, double seconds) {
        time.schedule(seconds, [&time, state] {
            if (!state->work) {
                return;
            }
            if (state->interval) {
                schedule(time, state, *state->interval);
                // A copy: the work may cancel itself.
                const auto work = state->work;
                work();
            } else {
                std::exchange(state->work, nullptr)();
            }
        });
    }

    std::shared_ptr<State> m_state;
    SimulatedTime& m_time;
};

SimulatedTime::SimulatedTime(std::uint64_t seed, Date start) : m_start(start) {
    if (seed != 0) {
        m_random.emplace(seed);
    }
}

SimulatedTime::~SimulatedTime() {
    endJobs();
}

Date SimulatedTime::now() {
    return m_start + std::chrono::microseconds{m_now};
}

double SimulatedTime::monotonicSeconds() {
    return static_cast<double>(m_now) / 1e6;
}

void SimulatedTime::sleep(double seconds) {
    Worker* worker = Worker::current();
    if (worker == nullptr) {
        std::abort(); // The main thread never sleeps.
    }
    if (m_isEnding) {
        return;
    }
    const Microseconds due = m_now + std::max<Microseconds>(0, std::llround(seconds * 1e6));
    if (due <= m_unwatchedUntil && (m_agenda.empty() || std::get<0>(m_agenda.begin()->first) > due)) {
        // Nothing happens until then and no condition is checked, so the worker can keep the baton.
        m_now = due;
    } else {
        insert(seconds, Owner::job, [this, worker] { resume(*worker); });
        handBack(*worker);
    }
}

void SimulatedTime::post(std::function<void()> work) {
    schedule(0, std::move(work));
}

std::unique_ptr<ScheduledWork> SimulatedTime::after(double seconds, std::function<void()> work) {
    auto handle = std::make_unique<Handle>(*this, std::move(work), std::nullopt);
    handle->scheduleIn(seconds);
    return handle;
}

std::unique_ptr<ScheduledWork> SimulatedTime::every(double seconds, std::function<void()> work) {
    auto handle = std::make_unique<Handle>(*this, std::move(work), seconds);
    handle->scheduleIn(seconds);
    return handle;
}

void SimulatedTime::run(WorkPriority priority, std::function<void()> work) {
    if (onRun) {
        onRun(priority);
    }
    schedule(0, [this, work = std::move(work)]() mutable { start(std::move(work)); });
}

void SimulatedTime::runFor(double seconds) {
    m_unwatchedUntil = m_now + std::llround(seconds * 1e6);
    runUntil([] { return false; }, seconds);
    m_unwatchedUntil = 0;
}

bool SimulatedTime::runUntil(const std::function<bool()>& condition, double limit) {
    const Microseconds end = m_now + std::llround(limit * 1e6);
    while (!condition()) {
        if (m_agenda.empty() || std::get<0>(m_agenda.begin()->first) > end) {
            m_now = end;
            return condition();
        }
        runNext();
    }
    return true;
}

void SimulatedTime::schedule(double seconds, std::function<void()> work) {
    insert(seconds, Owner::mainOrWorld, std::move(work));
}

void SimulatedTime::insert(double seconds, Owner owner, std::function<void()> work) {
    const Microseconds due = m_now + std::max<Microseconds>(0, std::llround(seconds * 1e6));
    // Main queue and world entries keep their order; workers are shuffled around them.
    constexpr std::uint32_t middle = 1U << 31U;
    const bool isShuffled = m_random && owner == Owner::job;
    const auto tie = isShuffled ? static_cast<std::uint32_t>((*m_random)()) : middle;
    m_agenda.emplace(Key{due, tie, m_sequence++}, Entry{owner, std::move(work)});
}

void SimulatedTime::noteWait(const std::string& what) {
    if (m_isInTurn && !isOnWorker() && !UserEdit::isActive()) {
        m_mainThreadWaits.push_back(what);
    }
}

bool SimulatedTime::isOnWorker() {
    return Worker::current() != nullptr;
}

void SimulatedTime::setWallClock(Date date) {
    m_start = date - std::chrono::microseconds{m_now};
}

void SimulatedTime::runNext() {
    auto next = m_agenda.extract(m_agenda.begin());
    m_now = std::max(m_now, std::get<0>(next.key()));
    m_isInTurn = true;
    next.mapped().work();
    m_isInTurn = false;
}

void SimulatedTime::start(std::function<void()> work) {
    if (m_idleWorkers.empty()) {
        m_workers.push_back(std::make_unique<Worker>(*this));
        m_idleWorkers.push_back(m_workers.back().get());
    }
    Worker* worker = m_idleWorkers.back();
    m_idleWorkers.pop_back();
    ++m_busyWorkers;
    worker->work = std::move(work);
    resume(*worker);
}

void SimulatedTime::resume(Worker& worker) {
    worker.baton.release();
    m_baton.acquire();
}

void SimulatedTime::handBack(Worker& worker) {
    worker.time.m_baton.release();
    worker.baton.acquire();
}

void SimulatedTime::endJobs() {
    m_isEnding = true;
    std::erase_if(m_agenda, [](const auto& entry) { return entry.second.owner == Owner::mainOrWorld; });
    while (m_busyWorkers > 0 && !m_agenda.empty()) {
        runNext();
    }
    m_agenda.clear();
}

} // namespace vantrel::simulated

// Virtual time, and everything that runs on it: a clock, a main queue and background workers that really
// interleave, one running at a time, in an order that the events alone decide.
//
// The thread that makes this object is the main thread. Nothing happens while it does not call one of the
// run functions. Each background job is a thread of its own that runs only while it holds the baton; it
// gives the baton back when it sleeps, waits for its own workers or ends. So a display change can arrive in
// the middle of a restore, and the same script always gives the same story.
#pragma once

#include "VantrelCore/ports/Background.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/MainQueue.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <semaphore>
#include <thread>
#include <tuple>
#include <vector>

namespace vantrel::simulated {

class SimulatedTime final : public Clock, public MainQueue, public Background {
public:
    // What background workers do at the same instant is ordered by the seed; 0 keeps the order of scheduling.
    explicit SimulatedTime(std::uint64_t seed = 0,
                           Date start = Date{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2}});
    ~SimulatedTime() override;

    // Clock.
    [[nodiscard]] Date now() override;
    [[nodiscard]] double monotonicSeconds() override;
    // On a background worker only.
    void sleep(double seconds) override;

    // MainQueue.
    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds, std::function<void()> work) override;

    // Background.
    void run(WorkPriority priority, std::function<void()> work) override;
    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& work) override;
    [[nodiscard]] StopToken stopToken() const override { return {}; }

    // The control side, for tests.

    // Runs everything that is due within the next `seconds`, and leaves the clock there.
    void runFor(double seconds);
    // Runs until `condition` holds, which is looked at after every event, for `limit` seconds at most; says
    // whether it holds.
    bool runUntil(const std::function<bool()>& condition, double limit);
    // The desk's own work, `seconds` from now: what the world does, not what the program asked for.
    void schedule(double seconds, std::function<void()> work);
    // Called when the program hands over background work.
    std::function<void(WorkPriority)> onRun;
    // Jumps the wall clock, as a user or a time server does. Monotonic time does not jump.
    void setWallClock(Date date);
    // Whether the caller is a background job, which may sleep.
    [[nodiscard]] static bool isOnWorker();
    // Lets every job that still runs come to its end; from then on sleeps take no time and main work is
    // dropped. Whoever gives jobs something to work on calls this before it goes.
    void endJobs();
    // True while a background job is running or asleep.
    [[nodiscard]] bool hasJobs() const { return m_busyWorkers > 0; }

private:
    class Worker;
    class Handle;
    using Microseconds = std::int64_t;
    // When, by the seed among equals, and in the order of scheduling.
    using Key = std::tuple<Microseconds, std::uint32_t, std::uint64_t>;

    // Whose work an entry of the agenda is; of jobs there is something left to do when everything ends.
    enum class Owner : std::uint8_t { mainOrWorld, job };

    struct Entry {
        Owner owner = Owner::mainOrWorld;
        std::function<void()> work;
    };

    void insert(double seconds, Owner owner, std::function<void()> work);
    void runNext();
    void start(std::function<void()> work);
    void resume(Worker& worker);
    // Called by the worker that holds the baton: lets others run until somebody resumes it.
    static void handBack(Worker& worker);

    std::optional<std::mt19937_64> m_random;
    Date m_start;
    Microseconds m_now = 0;
    // Up to here nobody looks at a condition between two events.
    Microseconds m_unwatchedUntil = 0;
    std::uint64_t m_sequence = 0;
    std::map<Key, Entry> m_agenda;
    std::vector<std::unique_ptr<Worker>> m_workers;
    std::vector<Worker*> m_idleWorkers;
    std::size_t m_busyWorkers = 0;
    // Released by the worker that gives the baton back.
    std::binary_semaphore m_baton{0};
    bool m_isEnding = false;
};

} // namespace vantrel::simulated

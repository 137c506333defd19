// Virtual time and everything that runs on it: a clock, a main queue and background workers that really
// interleave, one at a time, in a deterministic order.
//
// The thread that creates this object is the main thread. Nothing happens unless it calls one of the run
// functions. Each background job has its own thread, which runs only while it holds the baton. It returns the
// baton when it sleeps or ends. So a display change can arrive in the middle of a restore, and the same
// script always runs the same way.
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
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace vantrel::simulated {

class SimulatedTime final : public Clock, public MainQueue, public Background {
public:
    // The seed orders background work that is due at the same instant; 0 keeps the order of scheduling.
    explicit SimulatedTime(std::uint64_t seed = 0,
                           Date start = Date{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2}});
    ~SimulatedTime() override;

    // Clock.
    [[nodiscard]] Date now() override;
    [[nodiscard]] double monotonicSeconds() override;
    // Only on a background worker.
    void sleep(double seconds) override;

    // MainQueue.
    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds, std::function<void()> work) override;

    // Background.
    void run(WorkPriority priority, std::function<void()> work) override;
    // One after another, on the caller's thread.
    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& work) override {
        for (std::size_t i = 0; i < count; ++i) {
            work(i);
        }
    }
    [[nodiscard]] StopToken stopToken() const override { return {}; }

    // The control side, for tests.

    // Runs everything due within the next `seconds` and advances the clock by that much.
    void runFor(double seconds);
    // Runs until `condition` holds or `limit` seconds have passed. Checks it after every event. Returns
    // whether it holds.
    bool runUntil(const std::function<bool()>& condition, double limit);
    // Schedules an event of the simulated world, `seconds` from now.
    void schedule(double seconds, std::function<void()> work);
    // Called when the program submits background work.
    std::function<void(WorkPriority)> onRun;
    // Sets the wall clock, as a user or a time server does. Monotonic time is not affected.
    void setWallClock(Date date);
    // Called by ports whose call may have to wait for the disk or the display server.
    void noteWait(const std::string& what);
    // What the main queue's own work waited for, outside a UserEdit. Tests and background jobs may wait.
    [[nodiscard]] const std::vector<std::string>& mainThreadWaits() const { return m_mainThreadWaits; }
    // Whether the caller is a background job and so may sleep.
    [[nodiscard]] static bool isOnWorker();
    // Runs all remaining jobs to completion. From then on, sleeps take no time and main work is dropped.
    // Owners of objects that jobs use must call this in their destructor.
    void endJobs();
    // True while a background job is running or asleep.
    [[nodiscard]] bool hasJobs() const { return m_busyWorkers > 0; }

private:
    class Worker;
    class Handle;
    using Microseconds = std::int64_t;
    // Due time, random tie-breaker, order of scheduling.
    using Key = std::tuple<Microseconds, std::uint32_t, std::uint64_t>;

    // The owner of an agenda entry. Only job entries still run in endJobs().
    enum class Owner : std::uint8_t { mainOrWorld, job };

    struct Entry {
        Owner owner = Owner::mainOrWorld;
        std::function<void()> work;
    };

    void insert(double seconds, Owner owner, std::function<void()> work);
    void runNext();
    void start(std::function<void()> work);
    void resume(Worker& worker);
    // Called by the worker that holds the baton. Lets others run until it is resumed.
    static void handBack(Worker& worker);

    std::optional<std::mt19937_64> m_random;
    Date m_start;
    Microseconds m_now = 0;
    // Until this time, no condition is checked between events.
    Microseconds m_unwatchedUntil = 0;
    std::uint64_t m_sequence = 0;
    std::map<Key, Entry> m_agenda;
    std::vector<std::unique_ptr<Worker>> m_workers;
    std::vector<Worker*> m_idleWorkers;
    std::size_t m_busyWorkers = 0;
    // Released by a worker that returns the baton.
    std::binary_semaphore m_baton{0};
    // Something from the agenda is running.
    bool m_isInTurn = false;
    std::vector<std::string> m_mainThreadWaits;
    bool m_isEnding = false;
};

} // namespace vantrel::simulated

#include "Vantrel/platform/posix/ThreadBackground.h"

#include "Vantrel/platform/posix/SystemClock.h"

#include <atomic>
#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <latch>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace vantrel {

namespace {

// Long enough for any machine; only a failing test waits for it.
constexpr std::chrono::seconds deadline{30};

TEST(ThreadBackground, BlockedUtilityWorkHoldsUpNeitherTheCallerNorWorkThatTheUserWaitsFor) {
    std::promise<void> release;
    std::promise<void> urgent;
    std::promise<void> last;
    const auto released = release.get_future().share();
    ThreadBackground background;
    for (int i = 0; i < 20; ++i) {
        background.run(WorkPriority::utility, [released] { released.wait(); });
    }
    background.run(WorkPriority::utility, [&] { last.set_value(); });
    background.run(WorkPriority::userInitiated, [&] { urgent.set_value(); });
    EXPECT_EQ(urgent.get_future().wait_for(deadline), std::future_status::ready);
    release.set_value();
    EXPECT_EQ(last.get_future().wait_for(deadline), std::future_status::ready);
}

TEST(ThreadBackground, GivesEveryIndexAWorkerOfItsOwn) {
    ThreadBackground background;
    for (const std::size_t count : {1U, 2U, 16U, 64U}) {
        // Nobody gets past the latch before everybody stands at it.
        std::latch everybody(static_cast<std::ptrdiff_t>(count));
        std::vector<int> calls(count, 0);
        background.concurrentPerform(count, [&](std::size_t index) {
            everybody.arrive_and_wait();
            ++calls[index];
        });
        EXPECT_EQ(calls, std::vector<int>(count, 1));
    }
}

TEST(ThreadBackground, PerformsManyNestedAndNoIndexes) {
    ThreadBackground background;
    std::vector<int> calls(1000, 0);
    background.concurrentPerform(calls.size(), [&](std::size_t index) { ++calls[index]; });
    EXPECT_EQ(calls, std::vector<int>(1000, 1));

    background.concurrentPerform(0, [](std::size_t) { FAIL(); });

    // More workers asked for than there can be, all of them waiting for others.
    std::atomic<int> inner = 0;
    background.concurrentPerform(
        20, [&](std::size_t) { background.concurrentPerform(20, [&](std::size_t) { ++inner; }); });
    EXPECT_EQ(inner, 400);
}

TEST(ThreadBackground, ReusesItsThreads) {
    ThreadBackground background;
    std::mutex mutex;
    std::set<std::thread::id> seen;
    for (int round = 0; round < 50; ++round) {
        background.concurrentPerform(4, [&](std::size_t) {
            const std::scoped_lock lock(mutex);
            seen.insert(std::this_thread::get_id());
        });
    }
    // Were each round to make its own, there would be 150; a machine under load may reach the limit.
    EXPECT_LE(seen.size(), 65U);
}

TEST(ThreadBackground, WorkThatThrowsIsToldOfAndDelaysNobody) {
    std::mutex mutex;
    std::vector<std::string> lines;
    ThreadBackground background([&](const std::string& line) {
        const std::scoped_lock lock(mutex);
        lines.push_back(line);
    });
    std::promise<void> next;
    // One more than there are threads for it, all of which have thrown by then.
    for (int i = 0; i < 2; ++i) {
        background.run(WorkPriority::utility, [] { throw std::runtime_error("no room"); });
    }
    background.run(WorkPriority::utility, [&] { next.set_value(); });
    EXPECT_EQ(next.get_future().wait_for(deadline), std::future_status::ready);
    const auto told = [&] {
        const std::scoped_lock lock(mutex);
        return lines;
    };
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (told().size() < 2 && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
    }
    EXPECT_EQ(told(), std::vector<std::string>(2, "background: stopped by an error: no room"));

    std::atomic<int> calls = 0;
    EXPECT_THROW(background.concurrentPerform(5,
                                              [&](std::size_t index) {
                                                  ++calls;
                                                  if (index == 3) {
                                                      throw std::runtime_error("no room");
                                                  }
                                              }),
                 std::runtime_error);
    EXPECT_EQ(calls, 5);
}

TEST(ThreadBackground, UtilityWorkGivesWayToWorkThatTheUserWaitsFor) {
    ThreadBackground background;
    const auto nice = [&](WorkPriority priority) {
        std::promise<int> answer;
        background.run(priority, [&] { answer.set_value(getpriority(PRIO_PROCESS, 0)); });
        return answer.get_future().get();
    };
    // Linux has nothing beyond 19, where the tests themselves may run.
    EXPECT_EQ(nice(WorkPriority::utility), std::min(nice(WorkPriority::userInitiated) + 10, 19));
}

TEST(ThreadBackground, EndingAsksWhatHasBegunToStopAndWaitsForIt) {
    std::atomic<bool> begun = false;
    std::atomic<int> finished = 0;
    {
        ThreadBackground background;
        background.run(WorkPriority::userInitiated, [&, stop = background.stopToken()] {
            begun = true;
            while (!stop.isStopRequested()) {
                std::this_thread::yield();
            }
            // What work asks for while everything ends either runs or is dropped.
            background.run(WorkPriority::utility, [] {});
            background.concurrentPerform(3, [&](std::size_t) { ++finished; });
        });
        while (!begun) {
            std::this_thread::yield();
        }
    }
    EXPECT_EQ(finished, 3);
}

TEST(SystemClock, AgreesWithTheMachine) {
    SystemClock clock;
    const auto before = std::chrono::system_clock::now() - std::chrono::microseconds(1);
    const auto now = clock.now();
    EXPECT_TRUE(before <= now && now <= std::chrono::system_clock::now());
    const double start = clock.monotonicSeconds();
    clock.sleep(0.01);
    clock.sleep(-1);
    EXPECT_GE(clock.monotonicSeconds() - start, 0.01);
}

} // namespace

} // namespace vantrel

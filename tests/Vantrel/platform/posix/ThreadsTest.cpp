// Background work and the background writer on real threads.
#include "Vantrel/platform/posix/ThreadBackground.h"
#include "VantrelCore/stores/BackgroundWriter.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <latch>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace vantrel {
namespace {

// Long enough for any machine; only a failing test waits for it.
constexpr std::chrono::seconds deadline{30};

TEST(ThreadBackground, BlockedUtilityWorkDelaysNothingElse) {
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

TEST(ThreadBackground, RunsEveryIndexConcurrently) {
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

TEST(ThreadBackground, LogsWorkThatThrowsAndGoesOn) {
    std::mutex mutex;
    std::vector<std::string> lines;
    {
        ThreadBackground background([&](const std::string& line) {
            const std::scoped_lock lock(mutex);
            lines.push_back(line);
        });
        std::promise<void> next;
        // Both threads of this priority throw before the third work runs.
        for (int i = 0; i < 2; ++i) {
            background.run(WorkPriority::utility, [] { throw std::runtime_error("no room"); });
        }
        background.run(WorkPriority::utility, [&] { next.set_value(); });
        EXPECT_EQ(next.get_future().wait_for(deadline), std::future_status::ready);

        std::atomic<int> calls = 0;
        const auto failThird = [&](std::size_t index) {
            ++calls;
            if (index == 3) {
                throw std::runtime_error("no room");
            }
        };
        EXPECT_THROW(background.concurrentPerform(5, failThird), std::runtime_error);
        EXPECT_EQ(calls, 5);
    }
    // The end waited for everything.
    EXPECT_EQ(lines, std::vector<std::string>(2, "background: stopped by an error: no room"));
}

TEST(ThreadBackground, UtilityWorkHasALowerPriority) {
    ThreadBackground background;
    const auto nice = [&](WorkPriority priority) {
        std::promise<int> answer;
        background.run(priority, [&] { answer.set_value(getpriority(PRIO_PROCESS, 0)); });
        return answer.get_future().get();
    };
    // Linux has nothing beyond 19, where the tests themselves may run.
    EXPECT_EQ(nice(WorkPriority::utility), std::min(nice(WorkPriority::userInitiated) + 10, 19));
}

TEST(ThreadBackground, DestructionRequestsAStopAndWaits) {
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

// Drops all work: reports are then delivered by finish() alone.
class NoQueue final : public MainQueue {
public:
    void post(std::function<void()> /*work*/) override {}
    std::unique_ptr<ScheduledWork> after(double /*seconds*/, std::function<void()> /*work*/) override {
        return nullptr;
    }
    std::unique_ptr<ScheduledWork> every(double /*seconds*/, std::function<void()> /*work*/) override {
        return nullptr;
    }
};

TEST(BackgroundWriterOnThreads, FinishingAFileWaitsForTheWriteThatHasBegun) {
    NoQueue queue;
    ThreadBackground background;
    BackgroundWriter writer(background, queue);
    std::latch hasBegun(1);
    std::vector<int> written;
    std::vector<int> reported;
    const auto write = [&](int number) {
        written.push_back(number);
        return [&, number] { reported.push_back(number); };
    };
    writer.submit("file", [&] {
        hasBegun.count_down();
        std::this_thread::sleep_for(std::chrono::milliseconds{20});
        return write(1);
    });
    hasBegun.wait();
    writer.submit("file", [&] { return write(2); });
    writer.submit("file", [&] { return write(3); });
    writer.finish("file");
    EXPECT_EQ(written, (std::vector{1, 3}));
    EXPECT_EQ(reported, (std::vector{1, 3}));
}

} // namespace
} // namespace vantrel

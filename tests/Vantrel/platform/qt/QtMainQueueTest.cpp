#include "Vantrel/platform/qt/QtMainQueue.h"

#include "tests/Vantrel/platform/qt/QtApplication.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace vantrel;
using vantrel::testing::handlePending;
using vantrel::testing::waitFor;

TEST(QtMainQueue, PostedWorkOfAnotherThreadRunsOnTheMainThreadInOrder) {
    QtMainQueue queue;
    std::vector<int> seen;
    bool onMainThread = true;
    const auto mainThread = std::this_thread::get_id();
    std::thread([&] {
        for (int i = 0; i < 100; ++i) {
            queue.post([&, i] {
                seen.push_back(i);
                onMainThread = onMainThread && std::this_thread::get_id() == mainThread;
            });
        }
    }).join();
    EXPECT_TRUE(seen.empty());
    ASSERT_TRUE(waitFor([&] { return seen.size() == 100; }));
    EXPECT_TRUE(std::ranges::is_sorted(seen));
    EXPECT_TRUE(onMainThread);
}

TEST(QtMainQueue, PostedWorkNeverRunsInsideThePost) {
    QtMainQueue queue;
    bool ran = false;
    queue.post([&] { ran = true; });
    EXPECT_FALSE(ran);
    EXPECT_TRUE(waitFor([&] { return ran; }));
}

TEST(QtMainQueue, CancelledAndDestroyedWorkDoesNotRunEvenWhenItWasDue) {
    QtMainQueue queue;
    int ran = 0;
    auto cancelled = queue.after(0, [&] { ++ran; });
    auto destroyed = queue.after(0, [&] { ++ran; });
    auto repeated = queue.every(0, [&] { ++ran; });
    cancelled->cancel();
    destroyed.reset();
    repeated.reset();
    bool later = false;
    const auto witness = queue.after(0.02, [&] { later = true; });
    ASSERT_TRUE(waitFor([&] { return later; }));
    EXPECT_EQ(ran, 0);
}

TEST(QtMainQueue, RepeatedWorkMayEndItself) {
    QtMainQueue queue;
    int ran = 0;
    std::unique_ptr<ScheduledWork> work;
    work = queue.every(0.001, [&] {
        if (++ran == 3) {
            work.reset();
            // What the work captured is still there after its own end.
            ++ran;
        }
    });
    ASSERT_TRUE(waitFor([&] { return work == nullptr; }));
    bool later = false;
    const auto witness = queue.after(0.02, [&] { later = true; });
    ASSERT_TRUE(waitFor([&] { return later; }));
    EXPECT_EQ(ran, 4);
}

TEST(QtMainQueue, WorkIsNotEarly) {
    QtMainQueue queue;
    const auto begun = std::chrono::steady_clock::now();
    bool ran = false;
    const auto work = queue.after(0.05, [&] { ran = true; });
    ASSERT_TRUE(waitFor([&] { return ran; }));
    EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(50));
}

TEST(QtMainQueue, WorkLeftWhenTheQueueGoesIsDropped) {
    bool ran = false;
    {
        QtMainQueue queue;
        queue.post([&] { ran = true; });
    }
    handlePending();
    EXPECT_FALSE(ran);
}

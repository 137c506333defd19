#include "Vantrel/platform/qt/QtMainQueue.h"

#include "tests/Vantrel/platform/qt/QtApplication.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace vantrel;
using vantrel::testing::handlePending;
using vantrel::testing::waitFor;

namespace {

// Until whatever else is due has had its turn.
void letPass(QtMainQueue& queue) {
    bool later = false;
    const auto witness = queue.after(0.02, [&] { later = true; });
    ASSERT_TRUE(waitFor([&] { return later; }));
}

} // namespace

TEST(QtMainQueue, RunsPostedWorkInOrderOnTheMainThread) {
    QtMainQueue queue;
    std::vector<int> seen;
    bool onMainThread = true;
    const auto post = [&, mainThread = std::this_thread::get_id()](int number) {
        queue.post([&, mainThread, number] {
            seen.push_back(number);
            onMainThread = onMainThread && std::this_thread::get_id() == mainThread;
        });
    };
    post(1);
    std::thread([&] {
        post(2);
        post(3);
    }).join();
    EXPECT_TRUE(seen.empty());
    ASSERT_TRUE(waitFor([&] { return seen.size() == 3; }));
    EXPECT_EQ(seen, (std::vector{1, 2, 3}));
    EXPECT_TRUE(onMainThread);
}

TEST(QtMainQueue, CancelledAndDestroyedWorkNeverRuns) {
    QtMainQueue queue;
    int ran = 0;
    const auto once = queue.after(0, [&] { ++ran; });
    auto cancelled = queue.after(0, [&] { ++ran; });
    auto destroyed = queue.after(0, [&] { ++ran; });
    auto repeated = queue.every(0, [&] { ++ran; });
    cancelled->cancel();
    destroyed.reset();
    repeated.reset();
    letPass(queue);
    EXPECT_EQ(ran, 1);
}

TEST(QtMainQueue, LogsWorkThatThrowsAndGoesOn) {
    std::vector<std::string> lines;
    QtMainQueue queue([&](const std::string& line) { lines.push_back(line); });
    const auto fail = [] { throw std::runtime_error("no room"); };
    queue.post(fail);
    const auto once = queue.after(0, fail);
    auto repeated = queue.every(0.001, fail);
    ASSERT_TRUE(waitFor([&] { return lines.size() >= 4; }));
    repeated.reset();
    EXPECT_EQ(lines.front(), "main queue: stopped by an error: no room");
}

TEST(GuardedApplication, LogsAnEventHandlerThatThrowsAndGoesOn) {
    QObject receiver;
    bool hasRun = false;
    QMetaObject::invokeMethod(&receiver, [] { throw std::runtime_error("no room"); }, Qt::QueuedConnection);
    QMetaObject::invokeMethod(&receiver, [&] { hasRun = true; }, Qt::QueuedConnection);
    ASSERT_TRUE(waitFor([&] { return hasRun; }));
    EXPECT_EQ(vantrel::testing::takeThrown(),
              std::vector<std::string>{"main loop: stopped by an error: no room"});
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
    letPass(queue);
    EXPECT_EQ(ran, 4);
}

TEST(QtMainQueue, DropsWorkWhenDestroyed) {
    bool ran = false;
    {
        QtMainQueue queue;
        queue.post([&] { ran = true; });
    }
    handlePending();
    EXPECT_FALSE(ran);
}

#include "Vantrel/platform/macos/MacMainQueue.h"
#include "Vantrel/platform/macos/MainThreadCall.h"
#include "tests/macos/CocoaTest.h"

#include <atomic>
#include <gmock/gmock.h>
#include <stdexcept>
#include <thread>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;

class MainQueueOfTheMac : public CocoaTest {
protected:
    std::vector<int> m_ran;
    MacMainQueue m_queue;
};

TEST_F(MainQueueOfTheMac, RunsWhatIsPostedInOrderFromAnyThread) {
    m_queue.post([this] { m_ran.push_back(1); });
    std::thread([this] { m_queue.post([this] { m_ran.push_back(2); }); }).join();
    m_queue.post([this] {
        m_ran.push_back(3);
        m_queue.post([this] { m_ran.push_back(4); });
    });
    EXPECT_TRUE(m_ran.empty());
    cocoa::runMainQueue();
    EXPECT_THAT(m_ran, ElementsAre(1, 2, 3, 4));
}

TEST_F(MainQueueOfTheMac, TimersFireUntilTheyAreCancelledOrDestroyed) {
    auto once = m_queue.after(0.5, [this] { m_ran.push_back(1); });
    const auto again = m_queue.every(2, [this] { m_ran.push_back(2); });
    cocoa::advance(4.5);
    EXPECT_THAT(m_ran, ElementsAre(1, 2, 2));
    again->cancel();
    once->cancel();
    cocoa::advance(10);
    EXPECT_EQ(m_ran.size(), 3U);

    (void)m_queue.after(0, [this] { m_ran.push_back(1); });
    std::unique_ptr<ScheduledWork> own;
    const std::string text(100, 'x');
    own = m_queue.every(1, [this, &own, text] {
        own.reset();
        m_ran.push_back(static_cast<int>(text.size()));
    });
    cocoa::advance(5);
    EXPECT_THAT(m_ran, ElementsAre(1, 2, 2, 100));
    EXPECT_EQ(cocoa::scheduledTimers(), 0U);
}

TEST_F(MainQueueOfTheMac, AsksTheSystemNotToSlowDownWorkThatPeopleWaitFor) {
    const auto repeated = m_queue.every(15, [] {});
    const auto later = m_queue.after(3600, [] {});
    EXPECT_EQ(mac().activities, 0);
    auto soon = m_queue.after(2, [this] { m_ran.push_back(mac().activities); });
    auto next = m_queue.after(20, [] {});
    EXPECT_EQ(mac().activities, 2);
    cocoa::advance(3);
    EXPECT_THAT(m_ran, ElementsAre(1));
    next->cancel();
    EXPECT_EQ(mac().activities, 0);
    next = m_queue.after(20, [] {});
    next.reset();
    soon.reset();
    EXPECT_EQ(mac().activities, 0);
}

TEST_F(MainQueueOfTheMac, LogsWorkThatThrowsAndGoesOn) {
    std::vector<std::string> lines;
    MacMainQueue queue([&](const std::string& line) { lines.push_back(line); });
    const auto fail = [] { throw std::runtime_error("no room"); };
    queue.post(fail);
    const auto again = queue.every(1, fail);
    cocoa::advance(2.5);
    EXPECT_THAT(lines, testing::SizeIs(3));
    EXPECT_THAT(lines, testing::Each("main queue: stopped by an error: no room"));
}

TEST_F(MainQueueOfTheMac, RunsAnotherThreadsCallOnTheMainThread) {
    std::optional<int> answer;
    std::atomic<bool> isAnswered = false;
    std::thread worker([&] {
        answer = callOnMainThread(m_queue, std::chrono::minutes(2), [] { return 42; });
        isAnswered = true;
    });
    while (!isAnswered) {
        cocoa::runMainQueue();
        std::this_thread::yield();
    }
    worker.join();
    EXPECT_EQ(answer, 42);
}

TEST_F(MainQueueOfTheMac, DoesNotStartACallThatTimedOut) {
    bool hasBegun = false;
    EXPECT_EQ(callOnMainThread(m_queue, std::chrono::milliseconds(1),
                               [&] {
                                   hasBegun = true;
                                   return 1;
                               }),
              std::nullopt);
    cocoa::runMainQueue();
    EXPECT_FALSE(hasBegun);
}

} // namespace
} // namespace vantrel::fake

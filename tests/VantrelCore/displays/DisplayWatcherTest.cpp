#include "VantrelCore/displays/DisplayWatcher.h"

#include "VantrelCore/displays/DisplayTopology.h"

#include <algorithm>
#include <deque>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <thread>
#include <utility>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The main thread as a list of work, on a time of its own.
class StepQueue final : public MainQueue {
public:
    void post(std::function<void()> work) override { m_posted.push_back(std::move(work)); }

    std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override {
        auto item = std::make_shared<Item>(Item{m_now + seconds, std::move(work)});
        m_items.push_back(item);
        return std::make_unique<Handle>(item);
    }

    std::unique_ptr<ScheduledWork> every(double /*seconds*/, std::function<void()> work) override {
        return std::make_unique<Handle>(std::make_shared<Item>(Item{0, std::move(work)}));
    }

    void runPosted() {
        while (!m_posted.empty()) {
            auto work = std::move(m_posted.front());
            m_posted.pop_front();
            work();
        }
    }

    void advance(double seconds) {
        runPosted();
        const double end = m_now + seconds;
        while (true) {
            const auto next =
                std::ranges::min_element(m_items, {}, [](const auto& item) { return item->due; });
            if (next == m_items.end() || (*next)->due > end) {
                break;
            }
            const auto item = *next;
            m_items.erase(next);
            m_now = item->due;
            if (auto work = std::exchange(item->work, {})) {
                work();
            }
            runPosted();
        }
        m_now = end;
    }

    [[nodiscard]] double now() const { return m_now; }

private:
    struct Item {
        double due = 0;
        std::function<void()> work;
    };

    struct Handle final : ScheduledWork {
        explicit Handle(std::shared_ptr<Item> scheduled) : item(std::move(scheduled)) {}
        ~Handle() override { item->work = {}; }
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        void cancel() override { item->work = {}; }
        std::shared_ptr<Item> item;
    };

    double m_now = 0;
    std::deque<std::function<void()>> m_posted;
    std::vector<std::shared_ptr<Item>> m_items;
};

class OneDisplay final : public DisplayServices {
public:
    std::vector<ActiveDisplay> activeDisplays() override { return active; }
    std::vector<Screen> screens() override { return {}; }
    std::vector<EdidHint> edidHints() override { return {}; }

    void setReconfigurationHandler(std::function<void()> newHandler) override {
        registrations += newHandler ? 1 : 0;
        handler = std::move(newHandler);
    }

    std::vector<ActiveDisplay> active = {
        {.id = 1, .isBuiltin = false, .bounds = {{0, 0}, {1920, 1080}}, .uuid = "A"}};
    std::function<void()> handler;
    int registrations = 0;
};

class DisplayWatcherTest : public testing::Test {
protected:
    StepQueue m_queue;
    OneDisplay m_services;
    std::optional<DisplayWatcher> m_watcher;
    std::vector<double> m_began;
    std::vector<double> m_settled;
    std::string m_settledID;

    void SetUp() override {
        m_watcher.emplace(2.0, m_services, m_queue);
        m_watcher->onChangeBegan = [this] { m_began.push_back(m_queue.now()); };
        m_watcher->onSettledChange = [this](const std::string& configID,
                                            const std::vector<DisplayInfo>& displays) {
            m_settled.push_back(m_queue.now());
            m_settledID = configID;
            EXPECT_EQ(displays.size(), m_services.active.size());
        };
        m_watcher->start();
    }

    void event() { m_services.handler(); }
};

TEST_F(DisplayWatcherTest, OneBurstBeginsOnceAndSettlesAfterTheLastEvent) {
    for (int i = 0; i < 10; ++i) {
        event();
        m_queue.runPosted();
        m_queue.advance(i < 9 ? 0.1 : 0);
    }
    EXPECT_THAT(m_began, ElementsAre(0.0));
    m_queue.advance(1.99);
    EXPECT_THAT(m_settled, IsEmpty());
    m_services.active[0].bounds.size.width = 2560;
    m_queue.advance(10);
    ASSERT_EQ(m_settled.size(), 1U);
    EXPECT_NEAR(m_settled[0], 2.9, 1e-9);
    EXPECT_EQ(m_settledID, DisplayTopology::configID(DisplayTopology::currentDisplays(m_services)));

    event();
    m_queue.advance(10);
    EXPECT_EQ(m_began.size(), 2U);
    EXPECT_EQ(m_settled.size(), 2U);
}

TEST_F(DisplayWatcherTest, EventsFromAnotherThreadReachTheMainThreadFirst) {
    std::thread platform([this] { event(); });
    platform.join();
    EXPECT_THAT(m_began, IsEmpty());
    m_queue.runPosted();
    EXPECT_EQ(m_began.size(), 1U);
}

TEST_F(DisplayWatcherTest, RegistersOnceHoweverOftenStarted) {
    m_watcher->start();
    EXPECT_EQ(m_services.registrations, 1);
    m_watcher->stop();
    m_watcher->stop();
    EXPECT_FALSE(m_services.handler);
    m_watcher->start();
    EXPECT_EQ(m_services.registrations, 2);
}

TEST_F(DisplayWatcherTest, StoppingDoesNotCancelAPendingSettle) {
    event();
    m_queue.runPosted();
    m_watcher->stop();
    m_queue.advance(3);
    EXPECT_EQ(m_settled.size(), 1U);
}

TEST_F(DisplayWatcherTest, NothingReachesADestroyedWatcher) {
    event();
    m_queue.runPosted();
    event();
    m_watcher.reset();
    EXPECT_FALSE(m_services.handler);
    m_queue.advance(10);
    EXPECT_EQ(m_began.size(), 1U);
    EXPECT_THAT(m_settled, IsEmpty());
}

TEST_F(DisplayWatcherTest, MayBeDestroyedByItsOwnCallbacks) {
    m_watcher->onChangeBegan = [this] { m_watcher.reset(); };
    event();
    m_queue.advance(10);
    EXPECT_THAT(m_settled, IsEmpty());

    SetUp();
    m_watcher->onSettledChange = [this](const auto&, const auto&) {
        m_watcher.reset();
        m_settled.push_back(m_queue.now());
    };
    event();
    m_queue.advance(10);
    EXPECT_EQ(m_settled.size(), 1U);
}

TEST_F(DisplayWatcherTest, WorksWithoutCallbacksAndWithoutDisplays) {
    m_services.active.clear();
    m_watcher->onChangeBegan = {};
    event();
    m_queue.advance(10);
    EXPECT_EQ(m_settledID, DisplayTopology::configID({}));
    m_watcher->onSettledChange = {};
    event();
    m_queue.advance(10);
    EXPECT_EQ(m_settled.size(), 1U);
}

} // namespace

} // namespace vantrel

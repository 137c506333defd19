#include "VantrelCore/displays/DisplayWatcher.h"

#include "VantrelCore/displays/DisplayTopology.h"
#include "tests/VantrelCore/DeskRecords.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <thread>
#include <utility>

namespace vantrel {

namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

class OneDisplay final : public DisplayServices {
public:
    std::vector<DisplayInfo> displays() override { return active; }

    void setReconfigurationHandler(std::function<void()> newHandler) override {
        registrations += newHandler ? 1 : 0;
        handler = std::move(newHandler);
    }

    std::vector<DisplayInfo> active = {displayOf("A", {{0, 0}, {1920, 1080}})};
    std::function<void()> handler;
    int registrations = 0;
};

class DisplayWatcherTest : public testing::Test {
protected:
    simulated::SimulatedTime m_time;
    OneDisplay m_services;
    std::optional<DisplayWatcher> m_watcher;
    std::vector<double> m_began;
    std::vector<double> m_settled;
    std::string m_settledID;

    void SetUp() override {
        m_watcher.emplace(2.0, m_services, m_time);
        m_watcher->onChangeBegan = [this] { m_began.push_back(m_time.monotonicSeconds()); };
        m_watcher->onSettledChange = [this](const std::string& configID,
                                            const std::vector<DisplayInfo>& displays) {
            m_settled.push_back(m_time.monotonicSeconds());
            m_settledID = configID;
            EXPECT_EQ(displays.size(), m_services.active.size());
        };
        m_watcher->start();
    }

    void event() { m_services.handler(); }
};

TEST_F(DisplayWatcherTest, ABurstBeginsOnceAndSettlesAfterItsLastEvent) {
    for (int i = 0; i < 10; ++i) {
        event();
        m_time.runFor(0.1);
    }
    m_services.active[0].frame.size.width = 2560;
    m_time.runFor(10);
    EXPECT_THAT(m_began, ElementsAre(0.0));
    EXPECT_THAT(m_settled, ElementsAre(DoubleNear(2.9, 1e-9)));
    EXPECT_EQ(m_settledID, DisplayTopology::configID(DisplayTopology::currentDisplays(m_services)));

    event();
    m_time.runFor(10);
    EXPECT_EQ(m_began.size(), 2U);
    EXPECT_EQ(m_settled.size(), 2U);
}

TEST_F(DisplayWatcherTest, HandlesEventsOnTheMainThread) {
    std::thread platform([this] { event(); });
    platform.join();
    EXPECT_THAT(m_began, IsEmpty());
    m_time.runFor(0);
    EXPECT_EQ(m_began.size(), 1U);
}

TEST_F(DisplayWatcherTest, RegistersOnceAndStoppingKeepsAPendingSettle) {
    m_watcher->start();
    EXPECT_EQ(m_services.registrations, 1);
    event();
    m_time.runFor(0);
    m_watcher->stop();
    EXPECT_FALSE(m_services.handler);
    m_time.runFor(3);
    EXPECT_EQ(m_settled.size(), 1U);
    m_watcher->start();
    EXPECT_EQ(m_services.registrations, 2);
}

TEST_F(DisplayWatcherTest, NothingReachesADestroyedWatcher) {
    event();
    m_time.runFor(0);
    event();
    m_watcher.reset();
    EXPECT_FALSE(m_services.handler);
    m_time.runFor(10);
    EXPECT_EQ(m_began.size(), 1U);
    EXPECT_THAT(m_settled, IsEmpty());
}

TEST_F(DisplayWatcherTest, MayBeDestroyedInItsOwnCallbacks) {
    m_watcher->onChangeBegan = [this] { m_watcher.reset(); };
    event();
    m_time.runFor(10);
    EXPECT_THAT(m_settled, IsEmpty());

    SetUp();
    m_watcher->onSettledChange = [this](const auto&, const auto&) {
        m_watcher.reset();
        m_settled.push_back(m_time.monotonicSeconds());
    };
    event();
    m_time.runFor(10);
    EXPECT_EQ(m_settled.size(), 1U);
}

} // namespace

} // namespace vantrel

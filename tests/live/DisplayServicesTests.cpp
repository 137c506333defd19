// The displays of a real X server while monitors come and go.
#include "Vantrel/platform/x11/X11DisplayServices.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "tests/live/WindowDesk.h"
#include "tools/desk/DockWindow.h"
#include "tools/desk/EdidBlock.h"

#include <gmock/gmock.h>
#include <mutex>

namespace vantrel::live {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

Rect rectOf(const MonitorPlace& place) {
    return {{static_cast<double>(place.x), static_cast<double>(place.y)},
            {static_cast<double>(place.width), static_cast<double>(place.height)}};
}

// A desk and the services under test on it.
struct ServedDesk : VantrelDesk {
    using VantrelDesk::VantrelDesk;

    [[nodiscard]] std::vector<DisplayInfo> displays() { return DisplayTopology::currentDisplays(services); }

    [[nodiscard]] std::vector<Rect> frames() {
        std::vector<Rect> result;
        for (const DisplayInfo& display : displays()) {
            result.push_back(display.frame);
        }
        return result;
    }

    X11DisplayServices services{connectTo(*this)};
};

// Every call of the reconfiguration handler, with the displays as they were then.
class Calls {
public:
    explicit Calls(ServedDesk& desk) : m_desk(desk), m_reader(connectTo(desk)) {
        m_desk.services.setReconfigurationHandler([this] {
            auto displays = m_reader.displays();
            const std::lock_guard lock(m_mutex);
            m_calls.push_back(std::move(displays));
        });
    }

    ~Calls() { m_desk.services.setReconfigurationHandler({}); }

    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;

    [[nodiscard]] std::vector<std::vector<DisplayInfo>> all() {
        const std::lock_guard lock(m_mutex);
        return m_calls;
    }

    // The last call, now or soon, finds what is there.
    [[nodiscard]] bool endWithThePresent() {
        return waitUntil([&] {
            const auto calls = all();
            return !calls.empty() && calls.back() == m_desk.services.displays();
        });
    }

private:
    ServedDesk& m_desk;
    X11DisplayServices m_reader;
    std::mutex m_mutex;
    std::vector<std::vector<DisplayInfo>> m_calls;
};

class DisplaysUnder : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(WindowManagers, DisplaysUnder, windowManagers(), windowManagerName);

TEST_P(DisplaysUnder, AreListedWithThePrimaryOneFirstAndThePanelsLeftOut) {
    ServedDesk desk(GetParam());
    desk.monitors().setPrimary(1);
    EXPECT_EQ(desk.frames(), (std::vector{rectOf(right), rectOf(left)}));
    const auto usable = [&] {
        const auto now = desk.displays();
        return std::pair{now.at(0).usableFrame(), now.at(1).usableFrame()};
    };
    EXPECT_EQ(usable(), std::pair(rectOf(right), rectOf(left)));

    const DockWindow top(desk.connection(), right, DockEdge::top, 30);
    const DockWindow bottom(desk.connection(), left, DockEdge::bottom, 48);
    EXPECT_TRUE(desk.connection().waitUntil(
        [&] { return usable() == std::pair{Rect{{1280, 30}, {1600, 870}}, Rect{{0, 0}, {1280, 976}}}; }));
}

TEST(Displays, AreTheSameDeskAfterABurstOfChangesToAnotherProcessAndOnAnotherServer) {
    ServedDesk desk("");
    const auto before = desk.displays();
    Calls calls(desk);
    for (int round = 0; round < 10; ++round) {
        desk.monitors().unplug(1);
        desk.monitors().plug(1, right);
        desk.monitors().plug(0, round % 2 == 0 ? MonitorPlace{0, 0, 1024, 768} : left);
    }
    EXPECT_TRUE(calls.endWithThePresent());
    EXPECT_EQ(desk.displays(), before);
    ServedDesk other("");
    EXPECT_EQ(other.displays(), before);
}

TEST(Displays, AreNotReportedAsChangedByAnybodysQueries) {
    ServedDesk desk("");
    const auto before = desk.services.displays();
    Calls calls(desk);
    for (int round = 0; round < 10; ++round) {
        desk.monitors().probe();
        EXPECT_EQ(desk.services.displays(), before);
    }
    // Calls come in the order of the events: what the queries caused is there before this change is.
    desk.monitors().unplug(1);
    EXPECT_TRUE(calls.endWithThePresent());
    EXPECT_THAT(calls.all(), Not(Contains(before)));
}

TEST(Displays, AreReportedWhenAMonitorWentAndCameBackBetweenTwoReadings) {
    ServedDesk desk("");
    Calls calls(desk);
    desk.monitors().blink();
    EXPECT_TRUE(calls.endWithThePresent());
}

TEST(Displays, AreNoneWhileEveryMonitorIsDark) {
    ServedDesk desk("");
    const auto before = desk.displays();
    Calls calls(desk);
    desk.monitors().darken();
    EXPECT_TRUE(calls.endWithThePresent());
    EXPECT_THAT(desk.displays(), IsEmpty());
    desk.monitors().relight();
    EXPECT_TRUE(calls.endWithThePresent());
    EXPECT_EQ(desk.displays(), before);
}

TEST(Displays, AreThoseThatTheUserDividedAMonitorInto) {
    ServedDesk desk("", {{0, 0, 2560, 1080}});
    const auto whole = desk.displays();
    desk.monitors().defineMonitor("wide-left", {0, 0, 1280, 1080}, {0});
    desk.monitors().defineMonitor("wide-right", {1280, 0, 1280, 1080}, {});
    EXPECT_EQ(desk.frames(), (std::vector{Rect{{0, 0}, {1280, 1080}}, Rect{{1280, 0}, {1280, 1080}}}));
    EXPECT_EQ(desk.displays().back().name, "wide-right");
    desk.monitors().removeMonitor("wide-right");
    desk.monitors().removeMonitor("wide-left");
    EXPECT_EQ(desk.displays(), whole);
}

TEST(Displays, AreKnownByTheirMonitorsWhereverThoseArePluggedIn) {
    const auto office = edidBlock({.serialNumber = 77, .name = "Office 27"});
    const auto meeting = edidBlock({.serialNumber = 78, .name = "Meeting 40"});
    ServedDesk desk("");
    Monitors& monitors = desk.monitors();
    monitors.setEdid(0, office);
    monitors.setEdid(1, meeting);
    const auto before = desk.displays();
    ASSERT_THAT(before, SizeIs(2));
    EXPECT_EQ(before[0].name, "Office 27");
    EXPECT_EQ(before[1].name, "Meeting 40");

    Calls calls(desk);
    monitors.setEdid(0, meeting);
    monitors.setEdid(1, office);
    EXPECT_TRUE(calls.endWithThePresent());
    const auto exchanged = desk.displays();
    ASSERT_THAT(exchanged, SizeIs(2));
    EXPECT_EQ(exchanged[0].uuid, before[1].uuid);
    EXPECT_EQ(exchanged[1].uuid, before[0].uuid);
}

} // namespace
} // namespace vantrel::live

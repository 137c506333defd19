// The displays of a real X server while monitors come and go.
#include "Vantrel/platform/x11/X11DisplayServices.h"
#include "VantrelCore/displays/DisplayIdentity.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "tests/live/WindowManagers.h"
#include "tests/live/desk/DockWindow.h"
#include "tests/live/desk/EdidBlock.h"
#include "tests/live/desk/PrivateDesk.h"

#include <algorithm>
#include <atomic>
#include <gmock/gmock.h>
#include <mutex>

namespace vantrel::live {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

constexpr MonitorPlace left{0, 0, 1280, 1024};
constexpr MonitorPlace right{1280, 0, 1600, 900};

Rect rectOf(const MonitorPlace& place) {
    return {{static_cast<double>(place.x), static_cast<double>(place.y)},
            {static_cast<double>(place.width), static_cast<double>(place.height)}};
}

std::shared_ptr<X11Connection> connect(const PrivateDesk& desk) {
    auto connection = X11Connection::open(desk.display());
    if (!connection) {
        throw std::runtime_error(connection.error());
    }
    return *connection;
}

// A desk and the services under test on it.
struct ServedDesk {
    explicit ServedDesk(const std::vector<MonitorPlace>& monitors, const std::string& windowManager = "")
        : desk(monitors, windowManager), services(connect(desk)) {}

    [[nodiscard]] std::vector<DisplayInfo> displays() { return DisplayTopology::currentDisplays(services); }

    PrivateDesk desk;
    X11DisplayServices services;
};

// Every call of the reconfiguration handler, with the displays as they were then.
class Calls {
public:
    explicit Calls(ServedDesk& desk) : m_desk(desk), m_reader(connect(desk.desk)) {
        m_desk.services.setReconfigurationHandler([this] {
            auto displays = m_reader.activeDisplays();
            const std::lock_guard lock(m_mutex);
            m_calls.push_back(std::move(displays));
        });
    }

    ~Calls() { m_desk.services.setReconfigurationHandler({}); }

    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;

    [[nodiscard]] std::vector<std::vector<ActiveDisplay>> all() {
        const std::lock_guard lock(m_mutex);
        return m_calls;
    }

    [[nodiscard]] bool waitForLast(const std::vector<ActiveDisplay>& displays) {
        return waitUntil([&] {
            const auto calls = all();
            return !calls.empty() && calls.back() == displays;
        });
    }

private:
    ServedDesk& m_desk;
    X11DisplayServices m_reader;
    std::mutex m_mutex;
    std::vector<std::vector<ActiveDisplay>> m_calls;
};

class DisplaysUnder : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(WindowManagers, DisplaysUnder, testedWindowManagers(), windowManagerName);

TEST_P(DisplaysUnder, AreListedWithThePrimaryOneFirstAndThePanelsLeftOut) {
    ServedDesk served({left, right}, GetParam());
    served.desk.monitors().setPrimary(1);

    const auto plain = served.displays();
    ASSERT_THAT(plain, ElementsAre(Field(&DisplayInfo::frame, rectOf(right)),
                                   Field(&DisplayInfo::frame, rectOf(left))));
    EXPECT_EQ(plain[0].usableFrame(), rectOf(right));
    EXPECT_EQ(plain[1].usableFrame(), rectOf(left));

    DeskConnection& connection = served.desk.connection();
    const DockWindow top(connection, right, DockEdge::top, 30);
    const DockWindow bottom(connection, left, DockEdge::bottom, 48);
    EXPECT_TRUE(connection.waitUntil([&] {
        const auto now = served.displays();
        return now.size() == 2 && now[0].usableFrame() == Rect{{1280, 30}, {1600, 870}} &&
               now[1].usableFrame() == Rect{{0, 0}, {1280, 976}};
    }));
}

TEST_P(DisplaysUnder, AreTheSameDeskAfterUnpluggingAndPluggingBack) {
    ServedDesk served({left, right}, GetParam());
    const auto before = served.displays();
    Calls calls(served);

    served.desk.monitors().unplug(1);
    const auto alone = served.displays();
    EXPECT_THAT(alone, SizeIs(1));
    EXPECT_EQ(alone.front().uuid, before.front().uuid);
    EXPECT_TRUE(calls.waitForLast(served.services.activeDisplays()));

    served.desk.monitors().plug(1, right);
    const auto after = served.displays();
    EXPECT_EQ(DisplayTopology::configID(after), DisplayTopology::configID(before));
    EXPECT_NE(DisplayTopology::configID(alone), DisplayTopology::configID(before));
    EXPECT_TRUE(calls.waitForLast(served.services.activeDisplays()));
}

TEST(Displays, AreTheSameToAnotherProcessOfTheProgramAndOnAnotherServer) {
    ServedDesk first({left, right});
    ServedDesk second({left, right});
    EXPECT_EQ(first.displays(), second.displays());
}

TEST(Displays, HaveTheLastWordAfterABurstOfThirtyChanges) {
    ServedDesk served({left, right});
    Calls calls(served);
    Monitors& monitors = served.desk.monitors();
    for (int round = 0; round < 10; ++round) {
        monitors.unplug(1);
        monitors.plug(1, right);
        monitors.plug(0, round % 2 == 0 ? MonitorPlace{0, 0, 1024, 768} : left);
    }
    monitors.plug(1, {1280, 0, 1920, 1080});

    EXPECT_TRUE(calls.waitForLast(served.services.activeDisplays()));
    EXPECT_THAT(served.services.activeDisplays(),
                ElementsAre(Field(&ActiveDisplay::bounds, rectOf(left)),
                            Field(&ActiveDisplay::bounds, Rect{{1280, 0}, {1920, 1080}})));
}

TEST(Displays, AreNotReportedAsChangedByAnybodysQueries) {
    ServedDesk served({left, right});
    const auto before = served.services.activeDisplays();
    Calls calls(served);
    for (int round = 0; round < 10; ++round) {
        served.desk.monitors().probe();
        EXPECT_EQ(served.services.activeDisplays(), before);
    }

    // Calls come in the order of the events: what the queries caused is there before this change is.
    served.desk.monitors().unplug(1);
    ASSERT_TRUE(calls.waitForLast(served.services.activeDisplays()));
    EXPECT_THAT(calls.all(), testing::Not(testing::Contains(before)));
}

TEST(Displays, AreReportedWhenAMonitorWentAndCameBackBetweenTwoReadings) {
    ServedDesk served({left, right});
    const auto before = served.services.activeDisplays();
    Calls calls(served);
    served.desk.monitors().blink();
    EXPECT_TRUE(calls.waitForLast(before));
}

TEST(Displays, AreNoneWhileEveryMonitorIsDark) {
    ServedDesk served({left, right});
    const auto before = served.displays();
    Calls calls(served);

    served.desk.monitors().darken();
    EXPECT_TRUE(calls.waitForLast({}));
    EXPECT_THAT(served.displays(), IsEmpty());
    EXPECT_THAT(served.services.screens(), IsEmpty());

    served.desk.monitors().relight();
    EXPECT_TRUE(calls.waitForLast(served.services.activeDisplays()));
    EXPECT_EQ(served.displays(), before);
}

TEST(Displays, OfWhichOneMirrorsAnotherCountOnce) {
    ServedDesk served({left});
    const auto alone = served.displays();
    served.desk.monitors().mirror(1, 0);
    EXPECT_EQ(served.displays(), alone);
}

TEST(Displays, AreThoseThatTheUserDividedAMonitorInto) {
    ServedDesk served({{0, 0, 2560, 1080}});
    served.desk.monitors().defineMonitor("wide-left", {0, 0, 1280, 1080}, {0});
    served.desk.monitors().defineMonitor("wide-right", {1280, 0, 1280, 1080}, {});
    const auto divided = served.displays();
    ASSERT_THAT(divided, ElementsAre(Field(&DisplayInfo::frame, Rect{{0, 0}, {1280, 1080}}),
                                     Field(&DisplayInfo::frame, Rect{{1280, 0}, {1280, 1080}})));
    EXPECT_EQ(divided[0].name, "wide-left");
    EXPECT_EQ(divided[1].name, "wide-right");
    EXPECT_NE(divided[0].uuid, divided[1].uuid);

    served.desk.monitors().removeMonitor("wide-right");
    served.desk.monitors().removeMonitor("wide-left");
    EXPECT_THAT(served.displays(), ElementsAre(Field(&DisplayInfo::frame, Rect{{0, 0}, {2560, 1080}})));
}

TEST(Displays, AreKnownByTheirMonitorsWhereverThoseArePluggedIn) {
    const auto office = edidBlock({.serialNumber = 77, .name = "Office 27"});
    const auto meeting = edidBlock({.serialNumber = 78, .name = "Meeting 40"});
    ServedDesk served({left, right});
    Monitors& monitors = served.desk.monitors();
    monitors.setEdid(0, office);
    monitors.setEdid(1, meeting);
    const auto before = served.displays();
    ASSERT_THAT(before, SizeIs(2));
    EXPECT_EQ(before[0].name, "Office 27");
    EXPECT_EQ(before[1].name, "Meeting 40");

    Calls calls(served);
    monitors.setEdid(0, meeting);
    monitors.setEdid(1, office);
    EXPECT_TRUE(calls.waitForLast(served.services.activeDisplays()));
    const auto exchanged = served.displays();
    ASSERT_THAT(exchanged, SizeIs(2));
    EXPECT_EQ(exchanged[0].uuid, before[1].uuid);
    EXPECT_EQ(exchanged[1].uuid, before[0].uuid);
}

TEST(Displays, WithTheSameIdentityDataAreToldApartByTheirConnectors) {
    const auto twin = edidBlock({.name = "Twin"});
    ServedDesk served({left, right});
    served.desk.monitors().setEdid(0, twin);
    served.desk.monitors().setEdid(1, twin);
    const auto displays = served.displays();
    ASSERT_THAT(displays, SizeIs(2));
    EXPECT_NE(displays[0].uuid, displays[1].uuid);
    EXPECT_EQ(displays[0].edidUUID, displays[1].edidUUID);
    // Neither has a serial number: the user is told.
    EXPECT_THAT(DisplayIdentity::diagnoses(displays), SizeIs(2));

    served.desk.monitors().unplug(1);
    served.desk.monitors().plug(1, right);
    EXPECT_EQ(served.displays(), displays);
}

} // namespace
} // namespace vantrel::live

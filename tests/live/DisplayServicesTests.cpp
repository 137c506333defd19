// The displays of a real X server while monitors come and go.
#include "Vantrel/platform/x11/X11DisplayServices.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "tests/live/WindowDesk.h"
#include "tools/desk/DockWindow.h"
#include "tools/desk/EdidBlock.h"

#include <gmock/gmock.h>
#include <mutex>
#include <utility>

namespace vantrel::live {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

// A desk with the services under test, and a record of each reconfiguration: the displays as they were then.
class DisplayDesk : public VantrelDesk {
public:
    using Displays = std::vector<DisplayInfo>;

    explicit DisplayDesk(const char* windowManager = "") : VantrelDesk(windowManager) {
        services.setReconfigurationHandler([this] {
            auto displays = m_reader.displays();
            const std::lock_guard lock(m_mutex);
            m_changes.push_back(std::move(displays));
        });
    }

    ~DisplayDesk() { services.setReconfigurationHandler({}); }
    DisplayDesk(const DisplayDesk&) = delete;
    DisplayDesk& operator=(const DisplayDesk&) = delete;

    [[nodiscard]] std::vector<DisplayInfo> displays() { return DisplayTopology::currentDisplays(services); }

    // Waits until the services know what the server has.
    [[nodiscard]] Displays current() {
        Displays result;
        EXPECT_TRUE(waitUntil([&] {
            result = displays();
            return result == DisplayTopology::currentDisplays(m_reader);
        }));
        return result;
    }

    // The changes since the last call, once the latest agrees with what is there now.
    std::vector<Displays> changes() {
        std::vector<Displays> result;
        EXPECT_TRUE(waitUntil([&] {
            const std::lock_guard lock(m_mutex);
            const bool isDone = !m_changes.empty() && m_changes.back() == services.displays();
            result = isDone ? std::exchange(m_changes, {}) : result;
            return isDone;
        }));
        return result;
    }

    X11DisplayServices services{connectTo(*this)};

private:
    X11DisplayServices m_reader{connectTo(*this)};
    std::mutex m_mutex;
    std::vector<Displays> m_changes;
};

class DisplaysUnder : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(WindowManagers, DisplaysUnder, windowManagers(), windowManagerName);

TEST_P(DisplaysUnder, ThePrimaryOneComesFirstAndPanelsAreNotUsable) {
    DisplayDesk desk(GetParam());
    desk.monitors().setPrimary(1);
    const DockWindow top(desk.connection(), right, DockEdge::top, 30);
    const DockWindow bottom(desk.connection(), left, DockEdge::bottom, 48);
    EXPECT_TRUE(desk.connection().waitUntil([&] {
        const auto now = desk.displays();
        return now.at(0).usableFrame() == Rect{{1280, 30}, {1600, 870}} &&
               now.at(1).usableFrame() == Rect{{0, 0}, {1280, 976}};
    }));
}

TEST(Displays, ChangesAreReportedAndQueriesAreNot) {
    DisplayDesk desk;
    Monitors& monitors = desk.monitors();
    const auto before = desk.displays();
    const auto active = desk.services.displays();
    for (int round = 0; round < 10; ++round) {
        monitors.probe();
        EXPECT_EQ(desk.services.displays(), active);
    }
    // Reports keep the order of the events: one that a query caused would come before this one.
    monitors.unplug(1);
    EXPECT_THAT(desk.changes(), Not(Contains(active)));

    monitors.plug(1, right);
    for (int round = 0; round < 10; ++round) {
        monitors.unplug(1);
        monitors.plug(1, right);
        monitors.plug(0, round % 2 == 0 ? MonitorPlace{0, 0, 1024, 768} : left);
    }
    desk.changes();
    EXPECT_EQ(desk.displays(), before);
    monitors.darken();
    desk.changes();
    EXPECT_THAT(desk.displays(), IsEmpty());
    monitors.relight();
    desk.changes();
    EXPECT_EQ(desk.displays(), before);

    DisplayDesk other;
    EXPECT_EQ(other.displays(), before) << "on another server";
    other.monitors().blink();
    other.changes();
}

TEST(Displays, KeepTheirIdentityAtAnotherConnectorAndMayBeDivided) {
    DisplayDesk desk;
    const auto office = edidBlock({.serialNumber = 77, .name = "Office 27"});
    const auto meeting = edidBlock({.serialNumber = 78, .name = "Meeting 40"});
    desk.monitors().setEdid(0, office);
    desk.monitors().setEdid(1, meeting);
    const auto before = desk.current();
    EXPECT_EQ(before.at(0).name, "Office 27");
    EXPECT_EQ(before.at(1).name, "Meeting 40");
    desk.monitors().setEdid(0, meeting);
    desk.monitors().setEdid(1, office);
    const auto exchanged = desk.current();
    EXPECT_EQ(exchanged.at(0).uuid, before[1].uuid);
    EXPECT_EQ(exchanged.at(1).uuid, before[0].uuid);

    desk.monitors().defineMonitor("half-left", {0, 0, 640, 1024}, {0});
    desk.monitors().defineMonitor("half-right", {640, 0, 640, 1024}, {});
    const auto divided = desk.current();
    EXPECT_EQ(divided.size(), 3U);
    EXPECT_TRUE(std::ranges::any_of(divided, [](const DisplayInfo& display) {
        return display.name == "half-right" && display.frame == Rect{{640, 0}, {640, 1024}};
    }));
    desk.monitors().removeMonitor("half-right");
    desk.monitors().removeMonitor("half-left");
    EXPECT_EQ(desk.current(), exchanged);
}

} // namespace
} // namespace vantrel::live

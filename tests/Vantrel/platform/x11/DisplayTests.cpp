// The list of displays, and the identity data of monitors.
#include "Vantrel/platform/x11/DisplayList.h"
#include "Vantrel/platform/x11/Edid.h"
#include "VantrelCore/displays/DisplayIdentity.h"
#include "tools/desk/EdidBlock.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <span>
#include <string>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::SizeIs;
using tools::edidBlock;
using tools::EdidPlan;

const Rect panelArea{{0, 0}, {1920, 1080}};
const Rect deskArea{{1920, 0}, {2560, 1440}};

MonitorReading monitor(const Rect& area, const std::string& connector, EdidBytes edid = {}) {
    return {.userName = std::nullopt,
            .isPrimary = false,
            .area = area,
            .outputs = {{.connector = connector, .edid = std::move(edid)}}};
}

MonitorReading primary(MonitorReading monitor) {
    monitor.isPrimary = true;
    return monitor;
}

TEST(DisplayList, BeginsWithThePrimaryDisplayWhateverTheServersOrder) {
    std::vector<MonitorReading> monitors{monitor({{0, 1440}, {800, 600}}, "HDMI-1"),
                                         monitor(panelArea, "eDP-1"), primary(monitor(deskArea, "DP-1")),
                                         monitor({{0, 2040}, {800, 600}}, "HDMI-2")};
    const auto listed = DisplayList::displays(monitors);
    EXPECT_THAT(listed,
                ElementsAre(Field(&DisplayInfo::frame, deskArea), Field(&DisplayInfo::frame, panelArea),
                            Field(&DisplayInfo::frame, Rect{{0, 1440}, {800, 600}}),
                            Field(&DisplayInfo::frame, Rect{{0, 2040}, {800, 600}})));
    std::ranges::reverse(monitors);
    EXPECT_EQ(DisplayList::displays(monitors), listed);
}

TEST(DisplayList, RecognisesLaptopPanelsByTheirConnector) {
    for (const char* connector : {"eDP-1", "eDP1", "eDP-1-1", "LVDS-1", "LVDS", "DSI-1"}) {
        EXPECT_TRUE(DisplayList::isBuiltinConnector(connector)) << connector;
    }
    for (const char* connector : {"DP-1", "HDMI-A-1", "DVI-D-0", "VGA1", "DUMMY0", ""}) {
        EXPECT_FALSE(DisplayList::isBuiltinConnector(connector)) << connector;
    }
}

TEST(DisplayList, NamesDisplaysAsTheirUsersKnowThem) {
    MonitorReading users = monitor(deskArea, "DP-1", edidBlock({.name = "U2720Q"}));
    users.userName = "left half";
    const std::pair<MonitorReading, const char*> rows[] = {
        {monitor(deskArea, "DP-1"), "External Display"},
        {monitor(deskArea, "DP-1", edidBlock({.manufacturer = "DEL", .product = 7})), "DEL 0007"},
        {monitor(deskArea, "DP-1", edidBlock({.name = "U2720Q"})), "U2720Q"},
        {monitor(panelArea, "eDP-1", edidBlock({.manufacturer = "AUO"})), "Built-in Display"},
        {monitor(panelArea, "eDP-1", edidBlock({.name = "Color LCD"})), "Color LCD"},
        {users, "left half"},
    };
    for (const auto& [monitor, name] : rows) {
        EXPECT_EQ(DisplayList::displays({monitor}).at(0).name, name);
    }
}

TEST(DisplayList, WithoutIdentityDataHasAnIdOfTheConnectorAlone) {
    const auto at = [](const Rect& area) {
        return DisplayList::displays({primary(monitor(panelArea, "eDP-1")), monitor(area, "HDMI-1")}).at(1);
    };
    EXPECT_EQ(at(deskArea).uuid, at({{0, 1080}, {800, 600}}).uuid);
    EXPECT_EQ(at(deskArea).uuid, "display-" + std::to_string(DisplayList::stableID("HDMI-1")));
    // Stored layouts depend on it: it may never change.
    EXPECT_EQ(DisplayList::stableID("HDMI-1"), 778721535U);
}

TEST(DisplayList, DamagedIdentityDataIsNone) {
    auto damaged = edidBlock({.name = "Flaky"});
    damaged[20] ^= 1;
    EXPECT_EQ(DisplayList::displays({monitor(deskArea, "DP-1", damaged)}),
              DisplayList::displays({monitor(deskArea, "DP-1")}));
}

TEST(DisplayList, KeepsAMonitorsIdentityAtAnotherConnectorButTellsTwinsApart) {
    const auto twin = edidBlock({.name = "Twin"});
    const auto single = DisplayList::displays({monitor(deskArea, "DP-1", twin)}).at(0);
    EXPECT_EQ(DisplayList::displays({monitor(deskArea, "DP-2", twin)}).at(0).uuid, single.uuid);

    const auto both =
        DisplayList::displays({monitor(panelArea, "DP-1", twin), monitor(deskArea, "DP-2", twin)});
    const auto swapped =
        DisplayList::displays({monitor(panelArea, "DP-2", twin), monitor(deskArea, "DP-1", twin)});
    ASSERT_THAT(both, SizeIs(2));
    EXPECT_NE(both[0].uuid, both[1].uuid);
    EXPECT_EQ(both[0].edidUUID, both[1].edidUUID);
    EXPECT_EQ(swapped[1].uuid, both[0].uuid);
}

TEST(DisplayList, CountsOutputsThatShowTheSameOnce) {
    const auto laptop = monitor(panelArea, "eDP-1", edidBlock({.manufacturer = "AUO"}));
    const auto alone = DisplayList::displays({primary(laptop)});
    // One CRTC with two outputs, two CRTCs, a beamer that shows a part.
    MonitorReading shared = primary(laptop);
    shared.outputs.insert(shared.outputs.begin(),
                          {.connector = "DP-1", .edid = edidBlock({.name = "Beamer"})});
    const auto beamer = monitor(panelArea, "DP-1", edidBlock({.name = "Beamer"}));
    const auto smallBeamer = monitor({{0, 0}, {1024, 768}}, "DP-1");
    EXPECT_EQ(DisplayList::displays({shared}), alone);
    EXPECT_EQ(DisplayList::displays({beamer, laptop}), alone);
    EXPECT_EQ(DisplayList::displays({laptop, smallBeamer}), alone);
    EXPECT_EQ(DisplayList::displays({primary(laptop), beamer}), alone);
    EXPECT_EQ(DisplayList::displays({laptop, primary(beamer)}).at(0).name, "Beamer");
}

TEST(DisplayList, ThePrimaryMarkOfAPartialMirrorCountsForTheDisplayItMirrors) {
    const auto listed = DisplayList::displays({monitor(panelArea, "DP-1"), monitor(deskArea, "DP-2"),
                                               primary(monitor({{1920, 0}, {1024, 768}}, "HDMI-1"))});
    EXPECT_THAT(listed,
                ElementsAre(Field(&DisplayInfo::frame, deskArea), Field(&DisplayInfo::frame, panelArea)));
}

TEST(DisplayList, KeepsTheUsersDivisionOfAMonitor) {
    const auto wide = edidBlock({.name = "Wide"});
    MonitorReading first = primary(monitor({{0, 0}, {1280, 1440}}, "DP-1", wide));
    first.userName = "first";
    MonitorReading second{
        .userName = "second", .isPrimary = false, .area = {{1280, 0}, {1280, 1440}}, .outputs = {}};
    const auto divided = DisplayList::displays({first, second});
    ASSERT_THAT(divided, SizeIs(2));
    EXPECT_FALSE(divided[0].uuid.starts_with("display-"));
    EXPECT_TRUE(divided[1].uuid.starts_with("display-"));
    second.outputs = first.outputs;
    const auto shared = DisplayList::displays({first, second});
    EXPECT_NE(shared[0].uuid, shared[1].uuid);
}

TEST(DisplayList, IsEmptyWithoutMonitorsAndSkipsAreasOfNoSize) {
    EXPECT_THAT(DisplayList::displays({}), SizeIs(0));
    EXPECT_THAT(DisplayList::displays({monitor({}, "DP-1"), monitor(deskArea, "DP-2")}), SizeIs(1));
}

Edid parsed(const EdidPlan& plan) {
    return EdidBlock::parse(edidBlock(plan)).value_or(Edid{});
}

std::string edidUUIDOf(const EdidPlan& plan) {
    const auto bytes = edidBlock(plan);
    return EdidBlock::edidUUID(bytes, parsed(plan));
}

TEST(EdidBlock, ReadsTextsWithoutUnprintableCharacters) {
    EXPECT_EQ(parsed({.manufacturer = "DEL",
                      .product = 0xA0B1,
                      .serialNumber = 0x12345678,
                      .name = " A\tB\x07 C  ",
                      .serialText = "CN0123456789A"}),
              (Edid{"DEL", 0xA0B1, 0x12345678, "AB C", "CN0123456789A"}));
}

TEST(EdidBlock, RefusesDamagedAndTruncatedData) {
    const auto good = edidBlock({.serialNumber = 5, .name = "Good"});
    ASSERT_TRUE(EdidBlock::parse(good));
    EXPECT_FALSE(EdidBlock::parse({}));
    EXPECT_FALSE(EdidBlock::parse(std::span(good).first(127)));
    for (const std::size_t at : {0U, 7U, 12U, 60U, 127U}) {
        auto damaged = good;
        damaged[at] ^= 0x10;
        EXPECT_FALSE(EdidBlock::parse(damaged)) << at;
    }
}

TEST(DisplayUUID, IsMadeOfTheWholeBlockAndTheConnector) {
    const auto one = edidBlock({.serialNumber = 1});
    auto extended = one;
    extended.resize(256, 0);
    EXPECT_NE(EdidBlock::displayUUID(one, ""), EdidBlock::displayUUID(extended, ""));
    EXPECT_NE(EdidBlock::displayUUID(one, "DP-1"), EdidBlock::displayUUID(one, "DP-2"));
    // Stored layouts depend on it: it may never change.
    EXPECT_EQ(EdidBlock::displayUUID(edidBlock({}), "DP-1"), "BAE3E99F-0A17-833F-81B4-B9A0BB6632D6");
}

TEST(EdidUUID, CarriesTheSerialNumberInItsSecondAndThirdGroup) {
    EXPECT_EQ(edidUUIDOf({.manufacturer = "DEL", .product = 0xD04A, .serialNumber = 0x11223344}),
              "10AC4AD0-4433-2211-0C22-0104803C2200");
}

TEST(EdidUUID, ShowsThatTheSerialNumberIsMissing) {
    using DisplayIdentity::serialFieldMissing;
    EXPECT_TRUE(serialFieldMissing(edidUUIDOf({})));
    EXPECT_TRUE(serialFieldMissing(edidUUIDOf({.serialNumber = 0x01010101})));
    EXPECT_FALSE(serialFieldMissing(edidUUIDOf({.serialText = "XK77"})));
    EXPECT_NE(edidUUIDOf({.serialText = "XK77"}), edidUUIDOf({.serialText = "XK78"}));
}

} // namespace
} // namespace vantrel

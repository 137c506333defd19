#include "Vantrel/platform/macos/DisplayRegistry.h"
#include "Vantrel/platform/macos/MacDisplayServices.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/Registry.h"
#include "tests/macos/fake/WindowServer.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct MacDisplays : PlatformTest {
    std::vector<Screen> kitScreens;
    MacDisplayServices adapter{[this] { return kitScreens; }};
};

TEST_F(MacDisplays, AreListedAsQuartzListsThem) {
    windowServer().displays = {
        {.id = 69, .bounds = {{0, 0}, {1440, 900}}, .isBuiltin = true, .uuid = "37D8832A-2D66"},
        {.id = 2, .bounds = {{-1920, -200}, {1920, 1080}}}};
    EXPECT_THAT(adapter.activeDisplays(),
                ElementsAre(ActiveDisplay{69, true, {{0, 0}, {1440, 900}}, "37D8832A-2D66"},
                            ActiveDisplay{2, false, {{-1920, -200}, {1920, 1080}}, {}}));
    kitScreens = {{.displayID = 69, .localizedName = "Colour", .frame = {}, .visibleFrame = {}}};
    EXPECT_THAT(adapter.displays(), ElementsAre(testing::Field(&DisplayInfo::name, "Colour"),
                                                testing::Field(&DisplayInfo::name, "External Display")));
}

TEST_F(MacDisplays, MayComeAndGoWhileTheyAreListedOrNotBeListedAtAll) {
    const Display one{.id = 1};
    const Display two{.id = 2};
    auto& server = windowServer();
    server.displays = {one, two};
    server.afterDisplayCount = [&] { server.displays = {two}; };
    EXPECT_THAT(adapter.activeDisplays(), SizeIs(1));
    server.afterDisplayCount = [&] { server.displays = {one, two, {.id = 3}}; };
    EXPECT_THAT(adapter.activeDisplays(), SizeIs(1));
    server.afterDisplayCount = [&] { server.displays = {}; };
    EXPECT_THAT(adapter.activeDisplays(), IsEmpty());
    server.afterDisplayCount = {};
    server.displays = {one};
    server.displayBufferError = kCGErrorCannotComplete;
    EXPECT_THAT(adapter.activeDisplays(), IsEmpty());
    server.displayListError = kCGErrorFailure;
    EXPECT_THAT(adapter.activeDisplays(), IsEmpty());
}

TEST_F(MacDisplays, OnlyTheLastHandlerHearsOfChanges) {
    int first = 0;
    int second = 0;
    {
        MacDisplayServices other([] { return std::vector<Screen>{}; });
        other.setReconfigurationHandler([&] { ++first; });
        other.setReconfigurationHandler([&] { ++second; });
        EXPECT_THAT(windowServer().callbacks, SizeIs(1));
        notifyReconfiguration(kCGDisplayBeginConfigurationFlag);
        notifyReconfiguration(kCGDisplayAddFlag);
        other.setReconfigurationHandler({});
        EXPECT_THAT(windowServer().callbacks, IsEmpty());
        other.setReconfigurationHandler([&] { ++second; });
    }
    EXPECT_THAT(windowServer().callbacks, IsEmpty());
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 2);
}

TEST_F(MacDisplays, AHandlerMayGoOrReplaceItselfDuringANotification) {
    int events = 0;
    adapter.setReconfigurationHandler([&] { ++events; });
    const auto underWay = windowServer().callbacks.at(0);
    underWay.function(1, 0, nullptr);
    EXPECT_EQ(events, 0);
    adapter.setReconfigurationHandler({});
    underWay.function(1, 0, underWay.userInfo);
    EXPECT_EQ(events, 0);
    adapter.setReconfigurationHandler([&] {
        adapter.setReconfigurationHandler([&] { events += 10; });
        ++events;
    });
    notifyReconfiguration(0);
    notifyReconfiguration(0);
    EXPECT_EQ(events, 11);
}

Service port(const Value& hints) {
    return {{"DisplayHints", hints}};
}

TEST_F(MacDisplays, HintsComeFromEveryPortOfEveryClassInOrder) {
    const auto hints = [](const std::string& name, const std::string& uuid) {
        return dictionary({{"ProductName", text(name)}, {"EDID UUID", text(uuid)}, {"MaxW", number(1920)}});
    };
    registry().services = {
        {"AppleATCDPINAdapterPort", {port(hints("Last", "4"))}},
        {"AppleATCDPHDMIPort", {port(hints("Third", "3"))}},
        {"AppleATCDPAltModePort", {{}, port(text("no dictionary")), port(hints("Second", "2"))}},
        {"AppleDCPDPTXRemotePortUFP",
         {port(hints("First", "1")), port(dictionary({{"ProductName", text("No UUID")}})),
          port(dictionary({{"ProductName", number(3)}, {"EDID UUID", text("5")}}))}},
        {"AppleSomethingElse", {port(hints("Never", "0"))}},
    };
    using Hint = EdidHint;
    EXPECT_THAT(DisplayRegistry::edidHints(),
                ElementsAre(Hint{"First", "1"}, Hint{"No UUID", {}}, Hint{{}, "5"}, Hint{"Second", "2"},
                            Hint{"Third", "3"}, Hint{"Last", "4"}));
    EXPECT_EQ(registry().openHandles, 0U);
}

TEST_F(MacDisplays, APortClassThatCannotBeMatchedHidesNoOther) {
    const auto hints = dictionary({{"ProductName", text("P")}, {"EDID UUID", text("U")}});
    registry().services["AppleATCDPHDMIPort"] = {port(hints)};
    registry().matchingErrors["AppleDCPDPTXRemotePortUFP"] = 5;
    EXPECT_THAT(DisplayRegistry::edidHints(), SizeIs(1));
    EXPECT_EQ(registry().openHandles, 0U);
    registry().makesNoMatching = true;
    EXPECT_THAT(DisplayRegistry::edidHints(), IsEmpty());
}

} // namespace
} // namespace vantrel::fake

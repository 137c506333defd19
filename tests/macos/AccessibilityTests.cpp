#include "Vantrel/platform/macos/MacAccessibility.h"
#include "Vantrel/platform/macos/MacWork.h"
#include "Vantrel/platform/posix/ThreadBackground.h"
#include "VantrelCore/windows/AccessibilityDesk.h"
#include "tests/macos/CocoaTest.h"
#include "tests/macos/fake/Accessibility.h"
#include "tests/macos/fake/WindowServer.h"
#include "tests/simulated/SimulatedTime.h"

#include <future>
#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr CGWindowListOption onScreenWithoutDesktop = 0x11;

struct MacDesk : CocoaTest {
    simulated::SimulatedTime time;
    MacAccessibility adapter{[this] { return apps; }, time};
    std::vector<RunningApp> apps;
    std::shared_ptr<Element> application = runApplication(100);

    [[nodiscard]] std::vector<WindowReading> windows(std::int32_t pid = 100) {
        return adapter.beginReading()->windows(
            {.pid = pid, .policy = {}, .bundleID = {}, .localizedName = {}});
    }
    void listTwo() {
        listWindows(*application, {makeWindow("a", {{0, 0}, {9, 9}}), makeWindow("b", {{0, 0}, {9, 9}})});
    }
    void TearDown() override { application.reset(); }
};

TEST_F(MacDesk, PromptingShowsTheSystemsDialogUntilTrusted) {
    EXPECT_TRUE(adapter.isTrusted());
    EXPECT_TRUE(adapter.prompt());
    EXPECT_EQ(accessibility().prompts, 0);
    accessibility().isTrusted = false;
    EXPECT_FALSE(adapter.isTrusted());
    EXPECT_FALSE(adapter.prompt());
    EXPECT_EQ(accessibility().prompts, 1);
    accessibility().grantsOnPrompt = true;
    EXPECT_TRUE(adapter.prompt());
}

TEST_F(MacDesk, TheProcessSetsItsTimeoutOnceAndEveryElementHasOne) {
    listTwo();
    for (int i = 0; i < 3; ++i) {
        for (const auto& window : windows()) {
            EXPECT_TRUE(window.element->raise());
        }
    }
    EXPECT_EQ(accessibility().processTimeouts, 1);
    EXPECT_EQ(accessibility().processTimeout, 1.0F);
    EXPECT_EQ(accessibility().callsWithoutTimeout, 0);
}

TEST_F(MacDesk, BackgroundWorkHasAPoolForWhatTheSystemAutoreleasesAndIsNotSlowedDown) {
    listTwo();
    accessibility().isAutoreleasing = true;
    std::promise<int> activities;
    ThreadBackground background({}, MacWork::perform);
    background.run(WorkPriority::utility, [&] {
        EXPECT_THAT(windows(), SizeIs(2));
        activities.set_value(mac().activities);
    });
    EXPECT_EQ(activities.get_future().get(), 1);
}

TEST_F(MacDesk, AWindowThatRefusesTheSizeThatItHasArrives) {
    const auto fixed = makeWindow("Calculator", {{0, 0}, {200, 300}});
    fixed->writeErrors["AXSize"] = kAXErrorIllegalArgument;
    listWindows(*application, {fixed});
    apps = {{.pid = 100,
             .policy = ActivationPolicy::regular,
             .bundleID = "com.apple.calculator",
             .localizedName = {}}};
    ThreadBackground background({}, MacWork::perform);
    AccessibilityDesk desk(adapter, background);
    const MovePermit permit;
    const WindowID id = desk.capture({}).windows.at(0).id;
    const auto arrange = [&](Size size) {
        const std::vector<WindowOrder> orders{
            {.window = id, .target = {.position = Point{50, 60}, .size = size}}};
        return desk.arrange(orders, permit).at(0);
    };
    const auto arrived = arrange({200, 300});
    EXPECT_TRUE(arrived.isTaken);
    EXPECT_EQ(arrived.frame, (Rect{{50, 60}, {200, 300}}));
    EXPECT_FALSE(arrange({400, 300}).isTaken);
}

TEST_F(MacDesk, AWindowListMayContainOtherThingsAndCostsOneCallPerWindow) {
    const auto first = reference(makeWindow("first", {{0, 0}, {10, 10}}));
    const auto second = reference(makeWindow("second", {{0, 0}, {10, 10}}));
    application->attributes["AXWindows"] =
        array({null(), first, text("junk"), pointValue(1, 2), number(3), second, array({})});
    const auto read = windows();
    ASSERT_THAT(read, SizeIs(2));
    EXPECT_EQ(read[0].attributes.title, "first");
    EXPECT_EQ(read[1].attributes.title, "second");
    const std::string all = "get AXPosition AXSize AXTitle AXSubrole AXMinimized AXFullScreen";
    EXPECT_THAT(accessibility().calls, ElementsAre("get AXWindows", all, all));
}

TEST_F(MacDesk, AnApplicationWithoutAUsableListHasNoWindows) {
    listTwo();
    EXPECT_THAT(windows(), SizeIs(2));
    EXPECT_THAT(windows(999), IsEmpty());
    application->readErrors["AXWindows"] = kAXErrorCannotComplete;
    EXPECT_THAT(windows(), IsEmpty());
    application->readErrors.clear();
    for (const Value& value : {Value(text("x")), Value(), null(), Value(dictionary({}))}) {
        application->attributes["AXWindows"] = value;
        EXPECT_THAT(windows(), IsEmpty());
    }
    accessibility().isTrusted = false;
    EXPECT_THAT(windows(), IsEmpty());
}

TEST_F(MacDesk, TheOnScreenListKeepsAPlaceForEntriesThatCannotBeRead) {
    const Value bounds = rectangle({{-5, 20.5}, {300, 200}});
    constexpr std::int64_t tooBig = 1LL << 40;
    EXPECT_THAT(adapter.beginReading()->onScreenWindows(), IsEmpty());
    windowServer().windowList = [] { return Value(text("no array")); };
    EXPECT_THAT(adapter.beginReading()->onScreenWindows(), IsEmpty());
    windowServer().windowList = [&]() -> Value {
        return array({
            listItem({.layer = number(0), .pid = number(100), .bounds = bounds}),
            listItem({.layer = number(25), .pid = number(101), .bounds = bounds}),
            text("no dictionary"),
            listItem({}),
            listItem({.layer = text("0"), .pid = boolean(true), .bounds = number(3)}),
            listItem(
                {.layer = realNumber(0.5), .pid = number(tooBig), .bounds = dictionary({{"X", number(1)}})}),
            listItem({.layer = number(tooBig), .pid = realNumber(7), .bounds = bounds}),
        });
    };
    const Rect rect{{-5, 20.5}, {300, 200}};
    EXPECT_THAT(adapter.beginReading()->onScreenWindows(),
                ElementsAre(WindowListEntry{0, 100, rect}, WindowListEntry{25, 101, rect}, WindowListEntry{},
                            WindowListEntry{}, WindowListEntry{}, WindowListEntry{},
                            WindowListEntry{tooBig, 7, rect}));
    EXPECT_EQ(windowServer().askedOption, onScreenWithoutDesktop);
    EXPECT_EQ(windowServer().askedRelativeTo, 0U);
}

} // namespace
} // namespace vantrel::fake

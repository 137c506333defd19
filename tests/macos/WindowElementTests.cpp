#include "Vantrel/platform/macos/MacWindowElement.h"
#include "VantrelCore/windows/AXWindowHandle.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/Accessibility.h"
#include "tests/simulated/SimulatedTime.h"

#include <array>
#include <gmock/gmock.h>
#include <variant>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Calls = std::vector<std::string>;

struct MacWindow : PlatformTest {
    simulated::SimulatedTime time;
    std::shared_ptr<OwnMoves> ownMoves = std::make_shared<OwnMoves>(time);
    std::shared_ptr<Element> application = runApplication(100);
    std::shared_ptr<Element> window = makeWindow("Letter", {{10, 20}, {300, 200}});
    std::shared_ptr<WindowElement> element;

    MacWindow() {
        listWindows(*application, {window});
        const auto app = std::make_shared<MacApplication>(100, ownMoves);
        element = std::make_shared<MacWindowElement>(app->windows().at(0), app);
        accessibility().calls.clear();
    }
    void TearDown() override {
        element.reset();
        window.reset();
        application.reset();
        PlatformTest::TearDown();
    }
    // What was asked since the last time.
    Calls calls() { return std::exchange(accessibility().calls, {}); }
    // Without the questions.
    Calls writes() {
        Calls all = calls();
        std::erase_if(all, [](const std::string& call) { return call.starts_with("get "); });
        return all;
    }
    [[nodiscard]] AXWindowHandle handle() const { return AXWindowHandle(element); }
};

const WindowAttributes whole{"Letter", "AXStandardWindow", false, false, Point{10, 20}, Size{300, 200}};

TEST_F(MacWindow, IsReadInOneCall) {
    EXPECT_EQ(element->read(AttributeGroup::all), whole);
    EXPECT_EQ(calls().size(), 1U);
    const WindowAttributes frame{{}, {}, {}, {}, whole.position, whole.size};
    EXPECT_EQ(element->read(AttributeGroup::frame), frame);
    EXPECT_THAT(calls(), ElementsAre("get AXPosition AXSize"));
}

// What happens to a window's attributes, and what is left of them.
struct Mishap {
    const char* name;
    const char* attribute;
    // What it becomes, or the error that asking for it gives.
    std::variant<Value, AXError> cause;
    WindowAttributes left;
};

std::vector<Mishap> mishaps() {
    const auto with = [](auto WindowAttributes::* member, auto value) {
        auto left = whole;
        left.*member = value;
        return left;
    };
    const auto noTitle = with(&WindowAttributes::title, std::nullopt);
    const auto noSize = with(&WindowAttributes::size, std::nullopt);
    auto noFrame = noSize;
    noFrame.position.reset();
    return {
        {"minimised", "AXMinimized", boolean(true), with(&WindowAttributes::isMinimized, true)},
        {"full screen", "AXFullScreen", boolean(true), with(&WindowAttributes::isFullscreen, true)},
        {"flag of another type", "AXMinimized", number(1),
         with(&WindowAttributes::isMinimized, std::nullopt)},
        {"title of another type", "AXTitle", number(3), noTitle},
        {"title without UTF-8", "AXTitle", brokenText(), noTitle},
        {"no title value", "AXTitle", Value{}, noTitle},
        {"title unsupported", "AXTitle", kAXErrorAttributeUnsupported, noTitle},
        {"no subrole", "AXSubrole", kAXErrorNoValue, with(&WindowAttributes::subrole, std::nullopt)},
        {"size of another type", "AXSize", text("wide"), noSize},
        {"size is a point", "AXSize", pointValue(1, 1), noSize},
        {"size fails", "AXSize", kAXErrorFailure, noSize},
        {"position is a size", "AXPosition", sizeValue(1, 1), noFrame},
        {"position fails", "AXPosition", kAXErrorNoValue, noFrame},
    };
}

TEST_F(MacWindow, MishapsLeaveTheSameInABatchAndOneByOne) {
    for (const auto& mishap : mishaps()) {
        auto broken = makeWindow("Letter", {{10, 20}, {300, 200}});
        if (const auto* value = std::get_if<Value>(&mishap.cause)) {
            broken->attributes[mishap.attribute] = *value;
        } else {
            broken->readErrors[mishap.attribute] = std::get<AXError>(mishap.cause);
        }
        listWindows(*application, {broken});
        const auto app = std::make_shared<MacApplication>(100, ownMoves);
        MacWindowElement read(app->windows().at(0), app);
        for (const Batch batch :
             {Batch::normal, Batch::nullsForErrors, Batch::unsupported, Batch::tooFewValues}) {
            accessibility().batch = batch;
            EXPECT_EQ(read.read(AttributeGroup::all), mishap.left)
                << mishap.name << ", batch " << static_cast<int>(batch);
        }
    }
}

TEST_F(MacWindow, AWindowIsReadOneByOneOnlyWhenItsApplicationReplies) {
    for (const AXError error : {kAXErrorCannotComplete, kAXErrorInvalidUIElement, kAXErrorAPIDisabled}) {
        accessibility().batchError = error;
        EXPECT_EQ(element->read(AttributeGroup::all), WindowAttributes{});
        EXPECT_EQ(calls().size(), 1U) << error;
    }
    for (const AXError error : {kAXErrorIllegalArgument, kAXErrorAttributeUnsupported, kAXErrorFailure}) {
        accessibility().batchError = error;
        EXPECT_EQ(element->read(AttributeGroup::all), whole);
        EXPECT_EQ(calls().size(), 7U) << error;
    }
    window->readErrors["AXPosition"] = kAXErrorNoValue;
    EXPECT_EQ(element->read(AttributeGroup::frame).frame(), std::nullopt);
    EXPECT_THAT(calls(), ElementsAre("get AXPosition AXSize", "get AXPosition")) << "no size alone";
}

TEST_F(MacWindow, EveryWriteIsSentInOrderAndHasItsOwnResult) {
    const std::array<FrameWrite, 3> writeAll{Point{1, 2}, Size{3, 4}, Point{1, 2}};
    const Calls sent{"set AXPosition 1,2", "set AXSize 3x4", "set AXPosition 1,2"};
    EXPECT_THAT(element->write(writeAll), ElementsAre(true, true, true));
    EXPECT_EQ(writes(), sent);
    EXPECT_EQ(handle().frame(), (Rect{{1, 2}, {3, 4}}));
    window->writeErrors["AXSize"] = kAXErrorAttributeUnsupported;
    EXPECT_THAT(element->write(writeAll), ElementsAre(true, false, true));
    window->writeErrors = {{"AXPosition", kAXErrorIllegalArgument}};
    calls();
    EXPECT_THAT(element->write(writeAll), ElementsAre(false, true, false));
    EXPECT_EQ(writes(), sent);

    EXPECT_TRUE(element->raise());
    EXPECT_EQ(calls(), Calls{"do AXRaise"});
    window->actionErrors["AXRaise"] = kAXErrorActionUnsupported;
    EXPECT_FALSE(element->raise());
    calls();
    accessibility().isOutOfValues = true;
    EXPECT_FALSE(handle().setFrame({{1, 2}, {3, 4}}));
    EXPECT_THAT(calls(), IsEmpty()) << "without a value to send the window is not touched";
}

struct EnhancedInterface : MacWindow {
    EnhancedInterface() { application->attributes["AXEnhancedUserInterface"] = boolean(true); }

    const std::string off = "set AXEnhancedUserInterface false";
    const std::string on = "set AXEnhancedUserInterface true";
};

TEST_F(EnhancedInterface, IsSwitchedOffOnceForAllMovesOfAnApplication) {
    {
        const auto moves = element->beginMoves();
        const auto again = element->beginMoves();
        EXPECT_TRUE(handle().setPosition({1, 2}));
        EXPECT_TRUE(handle().setPosition({3, 4}));
    }
    EXPECT_THAT(calls(), ElementsAre("get AXEnhancedUserInterface", off, "set AXPosition 1,2",
                                     "set AXPosition 3,4", on));
    // Without such a series, for the one move.
    EXPECT_TRUE(handle().setPosition({5, 6}));
    EXPECT_THAT(writes(), ElementsAre(off, "set AXPosition 5,6", on));
}

TEST_F(EnhancedInterface, IsSwitchedBackOnWhateverFailed) {
    window->writeErrors["AXPosition"] = kAXErrorCannotComplete;
    EXPECT_FALSE(handle().setPosition({1, 2}));
    EXPECT_THAT(writes(), ElementsAre(off, "set AXPosition 1,2", on));

    // Switching it off got no answer, and may have happened all the same.
    application->writeErrors["AXEnhancedUserInterface"] = kAXErrorCannotComplete;
    EXPECT_FALSE(handle().setPosition({1, 2}));
    EXPECT_THAT(writes(), ElementsAre(off, "set AXPosition 1,2", on, on));

    application->writeErrors["AXEnhancedUserInterface"] = kAXErrorAttributeUnsupported;
    EXPECT_FALSE(handle().setPosition({1, 2}));
    EXPECT_THAT(writes(), ElementsAre(off, "set AXPosition 1,2", on));
}

TEST_F(EnhancedInterface, IsLeftAloneWhereItIsOff) {
    const Value values[] = {boolean(false), number(1), text("true"), Value{}};
    for (const Value& value : values) {
        application->attributes["AXEnhancedUserInterface"] = value;
        EXPECT_TRUE(handle().setPosition({1, 2}));
        EXPECT_THAT(writes(), ElementsAre("set AXPosition 1,2"));
    }
    application->readErrors["AXEnhancedUserInterface"] = kAXErrorCannotComplete;
    EXPECT_TRUE(handle().setPosition({1, 2}));
    EXPECT_THAT(writes(), ElementsAre("set AXPosition 1,2"));
    EXPECT_EQ(accessibility().callsWithoutTimeout, 0);
}

TEST_F(MacWindow, IsMovedByTheUserIfTheButtonIsDownOnItAndVantrelDidNotMoveIt) {
    struct Case {
        const char* name;
        double afterOwnMove;
        Mouse mouse;
        bool isUsers;
    };
    const CGPoint on{60, 30};
    const Case cases[] = {
        {"dragged", 0.3, {.isDown = true, .location = on}, true},
        {"just dropped", 0.3, {.secondsSinceUp = 0.2, .location = on}, true},
        {"dropped long ago", 0.3, {.secondsSinceUp = 0.3, .location = on}, false},
        {"resized at its edge", 0.3, {.isDown = true, .location = {356, 30}}, true},
        {"another window is dragged", 0.3, {.isDown = true, .location = {400, 30}}, false},
        {"moved by Vantrel", 0.2, {.isDown = true, .location = on}, false},
    };
    for (const Case& each : cases) {
        time.runFor(1);
        accessibility().mouse = each.mouse;
        const auto watch = element->watchUserMoves();
        ASSERT_NE(watch, nullptr);
        const FrameWrite away[] = {Point{10, 20}};
        static_cast<void>(element->write(away));
        deliverMoves();
        time.runFor(each.afterOwnMove);
        setFrame(*window, {{50, 20}, {300, 200}});
        deliverMoves();
        EXPECT_EQ(watch->hasSeenUser(), each.isUsers) << each.name;
        EXPECT_EQ(watch->hasSeenUser(), each.isUsers) << each.name;
    }
    EXPECT_EQ(moveObservers(), 0U);
}

} // namespace
} // namespace vantrel::fake

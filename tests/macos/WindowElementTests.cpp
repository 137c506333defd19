#include "Vantrel/platform/macos/MacWindowElement.h"
#include "VantrelCore/windows/AXWindowHandle.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/Accessibility.h"

#include <array>
#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Calls = std::vector<std::string>;

struct MacWindow : PlatformTest {
    std::shared_ptr<Element> application = runApplication(100);
    std::shared_ptr<Element> window = makeWindow("Letter", {{10, 20}, {300, 200}});
    std::shared_ptr<WindowElement> element;

    MacWindow() {
        listWindows(*application, {window});
        const auto app = std::make_shared<MacApplication>(100);
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

const WindowAttributes whole{.title = "Letter",
                             .subrole = "AXStandardWindow",
                             .isMinimized = false,
                             .isFullscreen = false,
                             .position = Point{10, 20},
                             .size = Size{300, 200}};

TEST_F(MacWindow, IsReadInOneCall) {
    EXPECT_EQ(element->read(AttributeGroup::all), whole);
    EXPECT_EQ(calls().size(), 1U);
    const WindowAttributes frame{.title = {},
                                 .subrole = {},
                                 .isMinimized = {},
                                 .isFullscreen = {},
                                 .position = whole.position,
                                 .size = whole.size};
    EXPECT_EQ(element->read(AttributeGroup::frame), frame);
    EXPECT_THAT(calls(), ElementsAre("get AXPosition AXSize"));
}

// What happens to a window's attributes, and what is left of them.
struct Mishap {
    const char* name;
    std::function<void(Element& window)> cause;
    std::function<void(WindowAttributes& left)> effect;
};

std::vector<Mishap> mishaps() {
    const auto becomes = [](const char* attribute, const Value& value) {
        return [=](Element& window) { window.attributes[attribute] = value; };
    };
    const auto fails = [](const char* attribute, AXError error) {
        return [=](Element& window) { window.readErrors[attribute] = error; };
    };
    const auto noFrame = [](WindowAttributes& left) {
        left.position = std::nullopt, left.size = std::nullopt;
    };
    const auto noSize = [](WindowAttributes& left) { left.size = std::nullopt; };
    const auto noTitle = [](WindowAttributes& left) { left.title = std::nullopt; };
    return {
        {"nothing", [](Element&) {}, [](WindowAttributes&) {}},
        {"true flags",
         [](Element& window) {
             window.attributes["AXMinimized"] = boolean(true);
             window.attributes["AXFullScreen"] = boolean(true);
         },
         [](WindowAttributes& left) { left.isMinimized = true, left.isFullscreen = true; }},
        {"flags of another type",
         [](Element& window) {
             window.attributes["AXMinimized"] = number(1);
             window.attributes["AXFullScreen"] = text("true");
         },
         [](WindowAttributes& left) { left.isMinimized = {}, left.isFullscreen = {}; }},
        {"empty title", becomes("AXTitle", text("")), [](WindowAttributes& left) { left.title = ""; }},
        {"title of another type", becomes("AXTitle", number(3)), noTitle},
        {"title without UTF-8", becomes("AXTitle", brokenText()), noTitle},
        {"null title", becomes("AXTitle", null()), noTitle},
        {"no title value", becomes("AXTitle", Value{}), noTitle},
        {"title unsupported", [](Element& window) { window.attributes.erase("AXTitle"); }, noTitle},
        {"title times out", fails("AXTitle", kAXErrorCannotComplete), noTitle},
        {"no subrole", [](Element& window) { window.attributes.erase("AXSubrole"); },
         [](WindowAttributes& left) { left.subrole = {}; }},
        {"size of another type", becomes("AXSize", text("wide")), noSize},
        {"size is a point", becomes("AXSize", pointValue(1, 1)), noSize},
        {"size fails", fails("AXSize", kAXErrorFailure), noSize},
        {"position is a size", becomes("AXPosition", sizeValue(1, 1)), noFrame},
        {"position is an element", becomes("AXPosition", array({})), noFrame},
        {"position fails", fails("AXPosition", kAXErrorNoValue), noFrame},
    };
}

TEST_F(MacWindow, MishapsTakeAwayTheSameWhetherReadTogetherOrOneByOne) {
    for (const auto& mishap : mishaps()) {
        auto broken = makeWindow("Letter", {{10, 20}, {300, 200}});
        mishap.cause(*broken);
        listWindows(*application, {broken});
        const auto app = std::make_shared<MacApplication>(100);
        MacWindowElement read(app->windows().at(0), app);
        WindowAttributes expected = whole;
        mishap.effect(expected);
        for (const Batch batch :
             {Batch::answers, Batch::answersWithNulls, Batch::refuses, Batch::answersTooFew}) {
            accessibility().batch = batch;
            EXPECT_EQ(read.read(AttributeGroup::all), expected)
                << mishap.name << ", batch " << static_cast<int>(batch);
        }
    }
}

TEST_F(MacWindow, OneByOneTheSizeIsNotAskedForWithoutAPosition) {
    accessibility().batch = Batch::refuses;
    window->readErrors["AXPosition"] = kAXErrorNoValue;
    EXPECT_EQ(element->read(AttributeGroup::frame).frame(), std::nullopt);
    EXPECT_THAT(calls(), ElementsAre("get AXPosition AXSize", "get AXPosition"));
}

TEST_F(MacWindow, WhoDoesNotAnswerIsNotAskedAgainOneByOne) {
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
}

TEST_F(MacWindow, AClosedWindowAnswersNothingAndTakesNothing) {
    window->isDead = true;
    EXPECT_EQ(element->read(AttributeGroup::all), WindowAttributes{});
    EXPECT_FALSE(handle().setPosition({1, 2}));
    EXPECT_FALSE(handle().setFrame({{1, 2}, {3, 4}}));
    EXPECT_FALSE(element->raise());
}

TEST_F(MacWindow, WritesComeInTheOrderAsked) {
    const Rect frame{{1500, 50}, {2000, 800}};
    const Calls first{"set AXPosition 1500,50", "set AXSize 2000x800", "set AXPosition 1500,50"};
    const Calls sizeFirst{"set AXSize 2000x800", "set AXPosition 1500,50", "set AXPosition 1500,50"};
    EXPECT_TRUE(handle().setFrame(frame));
    EXPECT_EQ(writes(), first);
    EXPECT_EQ(handle().frame(), frame);
    EXPECT_TRUE(handle().setFrameSizeFirst(frame));
    EXPECT_EQ(writes(), sizeFirst);
    EXPECT_TRUE(handle().setPosition({7, 8}));
    EXPECT_EQ(writes(), Calls{"set AXPosition 7,8"});
    EXPECT_TRUE(handle().raise());
    EXPECT_EQ(calls(), Calls{"do AXRaise"});
}

TEST_F(MacWindow, AShiftWhileResizingIsUndoneByTheLastWrite) {
    window->onWrite = [](Element& self, const std::string& attribute, CFTypeRef value) -> AXError {
        self.attributes[attribute] = Value::retain(value);
        if (attribute == "AXSize") {
            self.attributes["AXPosition"] = pointValue(0, 33);
        }
        return kAXErrorSuccess;
    };
    EXPECT_TRUE(handle().setFrame({{100, 100}, {500, 400}}));
    EXPECT_EQ(handle().frame(), (Rect{{100, 100}, {500, 400}}));
}

TEST_F(MacWindow, EachWriteHasItsOwnResult) {
    const std::array<FrameWrite, 3> writeAll{Point{1, 2}, Size{3, 4}, Point{1, 2}};
    window->writeErrors["AXSize"] = kAXErrorAttributeUnsupported;
    EXPECT_THAT(element->write(writeAll), ElementsAre(true, false, true));
    EXPECT_EQ(writes().size(), 3U);
    window->writeErrors = {{"AXPosition", kAXErrorIllegalArgument}};
    EXPECT_THAT(element->write(writeAll), ElementsAre(false, true, false));

    int positions = 0;
    window->writeErrors.clear();
    window->onWrite = [&](Element&, const std::string& attribute, CFTypeRef) -> AXError {
        return attribute == "AXPosition" && ++positions == 2 ? kAXErrorFailure : kAXErrorSuccess;
    };
    EXPECT_TRUE(handle().setFrame({{1, 2}, {3, 4}}));
    window->onWrite = nullptr;
    window->actionErrors["AXRaise"] = kAXErrorActionUnsupported;
    EXPECT_FALSE(element->raise());
}

TEST_F(MacWindow, EveryWriteIsSentWhateverCameOfTheOnesBefore) {
    const std::array<FrameWrite, 3> writeAll{Point{1, 2}, Size{3, 4}, Point{1, 2}};
    window->writeErrors["AXPosition"] = kAXErrorCannotComplete;
    EXPECT_THAT(element->write(writeAll), ElementsAre(false, true, false));
    EXPECT_THAT(writes(), ElementsAre("set AXPosition 1,2", "set AXSize 3x4", "set AXPosition 1,2"));
}

TEST_F(MacWindow, WithoutAValueToSendTheWindowIsNotTouched) {
    accessibility().isOutOfValues = true;
    EXPECT_FALSE(handle().setFrame({{1, 2}, {3, 4}}));
    EXPECT_THAT(calls(), IsEmpty());
}

struct EnhancedInterface : MacWindow {
    EnhancedInterface() { application->attributes["AXEnhancedUserInterface"] = boolean(true); }

    const std::string off = "set AXEnhancedUserInterface false";
    const std::string on = "set AXEnhancedUserInterface true";
};

TEST_F(EnhancedInterface, IsOffForTheLengthOfAMove) {
    EXPECT_TRUE(handle().setPosition({1, 2}));
    EXPECT_THAT(writes(), ElementsAre(off, "set AXPosition 1,2", on));
}

TEST_F(EnhancedInterface, IsOffOnceForAllMovesOfAnApplication) {
    {
        const auto moves = element->beginMoves();
        const auto again = element->beginMoves();
        EXPECT_TRUE(handle().setPosition({1, 2}));
        EXPECT_TRUE(handle().setPosition({3, 4}));
    }
    EXPECT_THAT(calls(), ElementsAre("get AXEnhancedUserInterface", off, "set AXPosition 1,2",
                                     "set AXPosition 3,4", on));
    EXPECT_TRUE(handle().setPosition({5, 6}));
    EXPECT_THAT(writes(), ElementsAre(off, "set AXPosition 5,6", on));
}

TEST_F(EnhancedInterface, IsPutBackWhateverFailed) {
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

TEST_F(EnhancedInterface, IsLeftAloneWhereItIsNotOn) {
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

} // namespace
} // namespace vantrel::fake

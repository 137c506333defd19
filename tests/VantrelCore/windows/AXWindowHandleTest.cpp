#include "VantrelCore/windows/AXWindowHandle.h"

#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rect target{{10, 20}, {300, 200}};

class AXWindowHandleTest : public testing::Test {
protected:
    Journal journal;
    std::shared_ptr<ScriptedWindow> window = std::make_shared<ScriptedWindow>(journal);
    AXWindowHandle handle{window};
};

TEST_F(AXWindowHandleTest, WhateverGoesWrongIsMerelyUnavailable) {
    const auto broken = std::make_shared<ScriptedWindow>(journal);
    broken->attributes = {"Notes", standardWindowSubrole, true, true, Point{1, 2}, Size{3, 4}};
    broken->doesThrow = true;
    window->attributes.position = Point{1, 2};
    for (const AXWindowHandle& unavailable : {handle, AXWindowHandle(broken), AXWindowHandle(nullptr)}) {
        EXPECT_EQ(unavailable.title(), "");
        EXPECT_EQ(unavailable.subrole(), std::nullopt);
        EXPECT_FALSE(unavailable.isMinimized() || unavailable.isFullscreen());
        EXPECT_EQ(unavailable.frame(), std::nullopt);
        EXPECT_EQ(unavailable.raise(), unavailable.element() == window);
        EXPECT_EQ(unavailable.setFrame(target), unavailable.element() == window);
    }
    broken->doesThrow = false;
    EXPECT_TRUE(AXWindowHandle(broken).isMinimized() && AXWindowHandle(broken).isFullscreen());
}

TEST_F(AXWindowHandleTest, AFrameIsWrittenPositionSizePositionAndOnlyTheRepetitionMayFail) {
    const struct {
        std::deque<bool> taken;
        bool isSuccess;
    } cases[] = {{{true, true, false}, true}, {{false, true, true}, false}, {{true, false, true}, false}};

    for (const auto& [taken, isSuccess] : cases) {
        window->taken = taken;
        EXPECT_EQ(handle.setFrame(target), isSuccess);
        window->taken = taken;
        EXPECT_EQ(handle.setFrameSizeFirst(target), isSuccess);
        window->taken = taken;
        EXPECT_EQ(handle.setPosition(target.origin), taken.front());
        window->taken.clear();
    }
    auto events = journal.events();
    events.resize(3);
    EXPECT_THAT(events, ElementsAre("position size position", "size position position", "position"));
}

TEST_F(AXWindowHandleTest, ValuesThatNoPlatformCanRepresentDoNotTouchTheWindow) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(handle.setFrame({{0, 0}, {nan, 10}}));
    EXPECT_FALSE(handle.setFrameSizeFirst({{0, infinity}, {10, 10}}));
    EXPECT_FALSE(handle.setPosition({nan, 0}));
    EXPECT_THAT(journal.events(), IsEmpty());
}

} // namespace
} // namespace vantrel

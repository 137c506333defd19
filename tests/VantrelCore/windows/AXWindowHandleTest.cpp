#include "VantrelCore/windows/AXWindowHandle.h"

#include "VantrelCore/windows/AXApps.h"
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

TEST_F(AXWindowHandleTest, UnavailableAttributesHaveTheirFallbacks) {
    EXPECT_EQ(handle.title(), "");
    EXPECT_EQ(handle.subrole(), std::nullopt);
    EXPECT_FALSE(handle.isMinimized());
    EXPECT_FALSE(handle.isFullscreen());
    EXPECT_EQ(handle.frame(), std::nullopt);

    window->attributes.position = Point{1, 2};
    EXPECT_EQ(handle.frame(), std::nullopt) << "a position without a size is no frame";

    window->attributes = {"Notes", standardWindowSubrole, true, true, Point{1, 2}, Size{3, 4}};
    EXPECT_EQ(handle.title(), "Notes");
    EXPECT_EQ(handle.subrole(), standardWindowSubrole);
    EXPECT_TRUE(handle.isMinimized());
    EXPECT_TRUE(handle.isFullscreen());
    EXPECT_EQ(handle.frame(), (Rect{{1, 2}, {3, 4}}));
}

TEST_F(AXWindowHandleTest, AFrameIsWrittenPositionSizePosition) {
    EXPECT_TRUE(handle.setFrame(target));
    EXPECT_TRUE(handle.setFrameSizeFirst(target));
    EXPECT_TRUE(handle.setPosition(target.origin));
    EXPECT_THAT(journal.events(),
                ElementsAre("position size position", "size position position", "position"));
}

TEST_F(AXWindowHandleTest, OnlyTheRepeatedPositionMayFail) {
    const struct {
        std::deque<bool> taken;
        bool isSuccess;
    } cases[] = {
        {{true, true, false}, true},
        {{false, true, true}, false},
        {{true, false, true}, false},
    };

    for (const auto& [taken, isSuccess] : cases) {
        window->taken = taken;
        EXPECT_EQ(handle.setFrame(target), isSuccess);
        window->taken = taken;
        EXPECT_EQ(handle.setFrameSizeFirst(target), isSuccess);
    }
    window->taken = {false};
    EXPECT_FALSE(handle.setPosition(target.origin));
}

TEST_F(AXWindowHandleTest, ValuesThatNoPlatformCanRepresentDoNotTouchTheWindow) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(handle.setFrame({{0, 0}, {nan, 10}}));
    EXPECT_FALSE(handle.setFrameSizeFirst({{0, infinity}, {10, 10}}));
    EXPECT_FALSE(handle.setPosition({nan, 0}));
    EXPECT_THAT(journal.events(), IsEmpty());
}

TEST_F(AXWindowHandleTest, AWindowThatBreaksDownOrIsMissingIsMerelyUnavailable) {
    window->setFrame(target);
    window->doesThrow = true;
    for (const AXWindowHandle& broken : {handle, AXWindowHandle(nullptr)}) {
        EXPECT_EQ(broken.title(), "");
        EXPECT_EQ(broken.frame(), std::nullopt);
        EXPECT_FALSE(broken.raise());
        EXPECT_FALSE(broken.setFrame(target));
    }
}

TEST(AXApps, OnlyRegularApplicationsWithAnIdentifierCount) {
    const RunningApp notes{1, ActivationPolicy::regular, "org.notes", "Notes"};
    const RunningApp agent{2, ActivationPolicy::accessory, "org.agent", "Agent"};
    const RunningApp daemon{3, ActivationPolicy::prohibited, "org.daemon", std::nullopt};
    const RunningApp nameless{4, ActivationPolicy::regular, std::nullopt, "Script"};
    const RunningApp mail{5, ActivationPolicy::regular, "org.mail", std::nullopt};
    const std::vector<RunningApp> running{notes, agent, daemon, nameless, mail};

    EXPECT_THAT(AXApps::regularApps(running, std::nullopt), ElementsAre(notes, mail));
    EXPECT_THAT(AXApps::regularApps(running, "org.notes"), ElementsAre(mail));
    EXPECT_THAT(AXApps::regularApps(running, "org.Notes"), ElementsAre(notes, mail));
}

} // namespace
} // namespace vantrel

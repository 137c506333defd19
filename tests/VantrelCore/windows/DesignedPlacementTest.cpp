#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/SlotAnchor.h"
#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using namespace RestoreEngine;
using testing::ElementsAre;

constexpr Rect display{{0, 25}, {1440, 875}};
constexpr Rect slot{{740, 125}, {700, 600}};

auto ofWidth(double width) {
    return [width](Rect before, const FrameWrite& write) {
        Rect after = ScriptedWindow::obey(before, write);
        after.size.width = width;
        return after;
    };
}

class DesignedPlacementTest : public testing::Test {
protected:
    DesignedPlacementTest() { window->setFrame({{0, 0}, {100, 100}}); }

    DesignedPlacement place() {
        return placeDesigned(slot, AXWindowHandle(window), display, [&](double seconds) {
            pauses.push_back(seconds);
            onPause();
        });
    }

    Journal journal;
    std::shared_ptr<ScriptedWindow> window = std::make_shared<ScriptedWindow>(journal);
    std::vector<double> pauses;
    std::function<void()> onPause = [] {};
};

TEST_F(DesignedPlacementTest, AnObedientWindowFillsItsSlotAfterOnePause) {
    EXPECT_EQ(place(), DesignedPlacement(Placed{slot}));
    EXPECT_EQ(pauses.size(), 1U);
    EXPECT_THAT(journal.events(), ElementsAre("size position position", "position", "look"));
}

TEST_F(DesignedPlacementTest, AWindowStillOpeningIsPutBackOnce) {
    onPause = [&] {
        if (pauses.size() == 1) {
            window->setFrame({{300, 300}, {500, 400}});
        }
    };
    EXPECT_EQ(place(), DesignedPlacement(Placed{slot}));
    EXPECT_EQ(pauses.size(), 2U);
    EXPECT_GT(pauses[1], pauses[0]);
}

TEST_F(DesignedPlacementTest, AClampedWindowIsSeatedByItsOwnSize) {
    window->respond = ofWidth(500);
    const Rect centred{{840, 125}, {500, 600}};
    EXPECT_EQ(place(), DesignedPlacement(PlacedClampedSize{centred}));
    EXPECT_EQ(window->attributes.frame(), centred);

    window->respond = ofWidth(900);
    const Rect insideTheDisplay{{540, 125}, {900, 600}};
    EXPECT_EQ(place(), DesignedPlacement(PlacedClampedSize{insideTheDisplay}));

    window->respond = ofWidth(2000);
    const Rect widerThanTheDisplay{{0, 125}, {2000, 600}};
    EXPECT_EQ(place(), DesignedPlacement(PlacedClampedSize{widerThanTheDisplay}));
}

TEST_F(DesignedPlacementTest, AWindowThatStraysRejectsOrVanishesHasFailed) {
    onPause = [&] { window->setFrame({{300, 300}, {500, 400}}); };
    EXPECT_EQ(place(), DesignedPlacement(PlacementFailed{}));
    onPause = [] {};
    window->taken.assign(8, false);
    EXPECT_EQ(place(), DesignedPlacement(PlacementFailed{}));
    window->attributes.position.reset();
    EXPECT_EQ(place(), DesignedPlacement(PlacementFailed{}));
}

TEST(SlotAnchor, CentresWhatIsSmallerAndKeepsTheTopLeftOfWhatIsLarger) {
    const Rect space{{100, 50}, {400, 300}};
    EXPECT_EQ(SlotAnchor::anchor({200, 100}, space), (Rect{{200, 150}, {200, 100}}));
    EXPECT_EQ(SlotAnchor::anchor({500, 100}, space), (Rect{{100, 150}, {500, 100}}));
    EXPECT_EQ(SlotAnchor::anchor({400, 900}, space), (Rect{{100, 50}, {400, 900}}));
}

} // namespace
} // namespace vantrel

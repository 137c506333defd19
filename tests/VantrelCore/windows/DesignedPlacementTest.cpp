#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/SlotAnchor.h"
#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using namespace RestoreEngine;
using testing::ElementsAre;

constexpr Rect slot{{740, 125}, {700, 600}};

class DesignedPlacementTest : public testing::Test {
protected:
    DesignedPlacementTest() { window->setFrame({{0, 0}, {100, 100}}); }

    DesignedPlacement place() {
        return placeDesigned(slot, AXWindowHandle(window), {{0, 25}, {1440, 875}}, [&](double seconds) {
            pauses.push_back(seconds);
            if (pauses.size() <= straysAfter) {
                window->setFrame({{300, 300}, {500, 400}});
            }
        });
    }

    Journal journal;
    std::shared_ptr<ScriptedWindow> window = std::make_shared<ScriptedWindow>(journal);
    std::vector<double> pauses;
    // As many pauses end with the window elsewhere.
    std::size_t straysAfter = 0;
};

TEST_F(DesignedPlacementTest, AnObedientWindowFillsItsSlotAfterOnePause) {
    EXPECT_EQ(place(), DesignedPlacement::placed(slot));
    EXPECT_THAT(pauses, ElementsAre(settleSeconds));
    EXPECT_THAT(journal.events(), ElementsAre("size position position", "position", "look"));
}

TEST_F(DesignedPlacementTest, AWindowStillOpeningIsPutBackOnceAfterALongerPause) {
    straysAfter = 1;
    EXPECT_EQ(place(), DesignedPlacement::placed(slot));
    EXPECT_THAT(pauses, ElementsAre(settleSeconds, testing::Gt(settleSeconds)));
}

TEST_F(DesignedPlacementTest, AClampedWindowIsSeatedByItsOwnSizeInsideTheDisplay) {
    for (const Rect seat :
         {Rect{{840, 125}, {500, 600}}, Rect{{540, 125}, {900, 600}}, Rect{{0, 125}, {2000, 600}}}) {
        window->respond = [&](Rect before, const FrameWrite& write) {
            return Rect{ScriptedWindow::obey(before, write).origin, seat.size};
        };
        EXPECT_EQ(place(), DesignedPlacement::placedClampedSize(seat));
        EXPECT_EQ(window->attributes.frame(), seat);
    }
}

TEST_F(DesignedPlacementTest, AWindowThatStraysRejectsOrVanishesHasFailed) {
    straysAfter = 2;
    EXPECT_EQ(place(), DesignedPlacement::failed());
    window->respond = [](Rect before, const FrameWrite& write) {
        return Rect{ScriptedWindow::obey(before, write).origin, {slot.width(), 500}};
    };
    EXPECT_EQ(place(), DesignedPlacement::failed()) << "only another height";
    window->taken.assign(8, false);
    EXPECT_EQ(place(), DesignedPlacement::failed());
    window->attributes.position.reset();
    EXPECT_EQ(place(), DesignedPlacement::failed());
}

TEST(SlotAnchor, CentresWhatIsSmallerAndKeepsTheTopLeftOfWhatIsLarger) {
    const Rect space{{100, 50}, {400, 300}};
    EXPECT_EQ(SlotAnchor::anchor({200, 100}, space), (Rect{{200, 150}, {200, 100}}));
    EXPECT_EQ(SlotAnchor::anchor({500, 900}, space), (Rect{{100, 50}, {500, 900}}));
}

} // namespace
} // namespace vantrel

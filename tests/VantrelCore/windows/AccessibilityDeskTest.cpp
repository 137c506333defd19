#include "tests/simulated/SimulatedDesk.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rect frame{{100, 100}, {400, 300}};

class AccessibilityDeskTest : public testing::Test {
protected:
    std::vector<WindowID> captured() {
        std::vector<WindowID> ids;
        for (const DeskWindow& window : desk.port().capture({}).windows) {
            ids.push_back(window.id);
        }
        return ids;
    }

    std::optional<DeskWindow> look(WindowID window) { return desk.port().look(std::array{window}).front(); }

    simulated::SimulatedTime time;
    simulated::SimulatedDesk desk{time, simulated::DeskSetup::named("laptop-and-monitor")};
    std::int32_t notes = desk.launch("org.example.notes", "Notes");
    WindowID first = desk.open(notes, "same", frame);
    WindowID second = desk.open(notes, "other", {{700, 100}, {400, 300}});
};

TEST_F(AccessibilityDeskTest, AWindowKeepsItsIdentityUntilItCloses) {
    const auto ids = captured();
    ASSERT_EQ(ids.size(), 2U);
    desk.window(second).title = "same";
    desk.window(second).frame = frame;
    desk.bringToFront(first);
    EXPECT_THAT(captured(), testing::UnorderedElementsAreArray(ids));
    EXPECT_EQ(look(ids[0])->title, "same");

    desk.close(second);
    desk.open(notes, "same", frame);
    EXPECT_FALSE(look(ids[0]));
    EXPECT_EQ(look(ids[1])->id, ids[1]);
    const auto later = captured();
    EXPECT_EQ(later.size(), 2U);
    EXPECT_THAT(later, testing::Contains(ids[1]));
    EXPECT_THAT(later, testing::Not(testing::Contains(ids[0])));

    desk.quit(notes);
    EXPECT_THAT(captured(), IsEmpty());
    EXPECT_FALSE(look(ids[1]));
}

TEST_F(AccessibilityDeskTest, OrdersForUnknownWindowsAreNotTaken) {
    const auto ids = captured();
    desk.quit(notes);
    EXPECT_THAT(captured(), IsEmpty());
    const WindowOrder order{.window = ids[0], .target = {.position = Point{5, 5}}, .raises = true};
    const MovePermit permit;
    EXPECT_THAT(desk.port().arrange(std::array{order, order}, permit),
                ElementsAre(WindowOutcome(), WindowOutcome()));
    EXPECT_FALSE(desk.port().watchUserMoves(ids).front());
}

} // namespace
} // namespace vantrel

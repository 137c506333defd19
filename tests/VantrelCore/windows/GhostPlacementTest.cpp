#include "VantrelCore/windows/GhostPlacement.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

const DisplayInfo laptop = displayOf("laptop", {{0, 0}, {1000, 800}}, Rect{{0, 25}, {1000, 775}});
const DisplayInfo monitor = displayOf("monitor", {{1000, 0}, {2000, 1600}}, Rect{{1000, 0}, {2000, 1560}});

TEST(GhostPlacement, TheLargestDisplayIsTheOneWithTheLargestUsableArea) {
    const auto mostlyTaken = displayOf("wall", {{0, 0}, {4000, 4000}}, Rect{{0, 0}, {100, 4000}});
    const auto twin = displayOf("twin", monitor.frame, monitor.visibleFrame);
    EXPECT_EQ(GhostPlacement::largestDisplay({laptop, mostlyTaken, twin, monitor})->uuid, "twin");
    EXPECT_EQ(GhostPlacement::largestDisplay({}), std::nullopt);
}

TEST(GhostPlacement, NewSlotsStepAsideUntilThePlacesRunOut) {
    const Rect first{{200, 141.25}, {600, 542.5}};
    std::vector<Rect> existing;
    for (int i = 0; i < 5; ++i) {
        existing.push_back(GhostPlacement::defaultFrame(laptop, existing, 28));
        EXPECT_EQ(existing.back(), (Rect{{200 + 28.0 * i, 141.25 + 28 * i}, first.size}));
    }
    EXPECT_EQ(GhostPlacement::defaultFrame(laptop, existing, 28), first) << "all taken, so once more";
    existing.push_back(first);
    EXPECT_EQ(GhostPlacement::defaultFrame(laptop, existing, 28), existing[1]);
    EXPECT_EQ(GhostPlacement::defaultFrame(laptop, existing, 0), first);
}

TEST(GhostPlacement, ASlotFollowsItsDisplay) {
    const auto moved = displayOf("monitor", {{-1000, 0}, {1000, 800}});
    const Rect middle{{1500, 400}, {1000, 800}};
    const Rect underTheMenuBar{{0, 25}, {1000, 775}};
    const struct {
        const char* name;
        Rect slot;
        std::vector<DisplayInfo> saved;
        std::vector<DisplayInfo> present;
        std::string displayUUID;
        Rect expected;
    } cases[] = {
        {"as it was", middle, {laptop, monitor}, {monitor}, "monitor", middle},
        {"moved", middle, {laptop, monitor}, {laptop, moved}, "monitor", {{-750, 200}, {500, 400}}},
        {"away", middle, {laptop, monitor}, {laptop}, "laptop", {{250, 200}, {500, 400}}},
        {"menu bar", monitor.frame, {laptop, monitor}, {laptop}, "laptop", underTheMenuBar},
        {"never saved", middle, {}, {laptop}, "laptop", underTheMenuBar},
        {"no display", middle, {laptop, monitor}, {}, "monitor", middle},
    };
    for (const auto& [name, slot, saved, present, displayUUID, expected] : cases) {
        EXPECT_EQ(GhostPlacement::onConnectedDisplays(windowOf("app", slot, "monitor"), saved, present),
                  windowOf("app", expected, displayUUID))
            << name;
    }
}

} // namespace
} // namespace vantrel

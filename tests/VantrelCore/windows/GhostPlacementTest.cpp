#include "VantrelCore/windows/GhostPlacement.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

DisplayInfo display(const std::string& uuid, const Rect& frame, std::optional<Rect> visible = std::nullopt) {
    return {uuid, uuid, frame, false, std::nullopt, visible};
}

const DisplayInfo laptop = display("laptop", {{0, 0}, {1000, 800}}, Rect{{0, 25}, {1000, 775}});
const DisplayInfo monitor = display("monitor", {{1000, 0}, {2000, 1600}}, Rect{{1000, 0}, {2000, 1560}});

WindowRecord slot(const Rect& frame, const std::string& displayUUID) {
    WindowRecord record;
    record.frame = frame;
    record.displayUUID = displayUUID;
    record.isGhost = true;
    return record;
}

TEST(GhostPlacement, TheLargestDisplayIsTheOneWithTheLargestUsableArea) {
    const auto mostlyTaken = display("wall", {{0, 0}, {4000, 4000}}, Rect{{0, 0}, {100, 4000}});
    EXPECT_EQ(GhostPlacement::largestDisplay({laptop, mostlyTaken, monitor})->uuid, "monitor");
    const auto twin = display("twin", monitor.frame, monitor.visibleFrame);
    EXPECT_EQ(GhostPlacement::largestDisplay({laptop, twin, monitor})->uuid, "twin");
    EXPECT_EQ(GhostPlacement::largestDisplay({}), std::nullopt);
}

TEST(GhostPlacement, NewSlotsStepAsideUntilThePlacesRunOut) {
    const Rect first = GhostPlacement::defaultFrame(laptop, {}, 28);
    EXPECT_EQ(first.size, (Size{600, 542.5}));
    EXPECT_EQ(first.center(), laptop.usableFrame().center());

    std::vector<Rect> existing;
    for (int i = 0; i < 5; ++i) {
        existing.push_back(GhostPlacement::defaultFrame(laptop, existing, 28));
        EXPECT_EQ(existing.back().minX(), first.minX() + 28 * i);
        EXPECT_EQ(existing.back().minY(), first.minY() + 28 * i);
        EXPECT_LE(existing.back().maxY(), laptop.usableFrame().maxY());
    }
    EXPECT_EQ(GhostPlacement::defaultFrame(laptop, existing, 28), first)
        << "all taken, so the first once more";
    existing.push_back(first);
    EXPECT_EQ(GhostPlacement::defaultFrame(laptop, existing, 28), existing[1]);
    EXPECT_EQ(GhostPlacement::defaultFrame(laptop, existing, 0), first);
}

TEST(GhostPlacement, ASlotFollowsItsDisplay) {
    const std::vector saved{laptop, monitor};
    const auto onMonitor = slot({{1500, 400}, {1000, 800}}, "monitor");

    EXPECT_EQ(GhostPlacement::onConnectedDisplays(onMonitor, saved, {monitor}), onMonitor);

    const auto movedMonitor = display("monitor", {{-1000, 0}, {1000, 800}});
    EXPECT_EQ(GhostPlacement::onConnectedDisplays(onMonitor, saved, {laptop, movedMonitor}),
              slot({{-750, 200}, {500, 400}}, "monitor"));

    EXPECT_EQ(GhostPlacement::onConnectedDisplays(onMonitor, saved, {laptop}),
              slot({{250, 200}, {500, 400}}, "laptop"))
        << "its display is away";
    const auto atTheTop = slot({{1000, 0}, {2000, 1600}}, "monitor");
    EXPECT_EQ(GhostPlacement::onConnectedDisplays(atTheTop, saved, {laptop}),
              slot({{0, 25}, {1000, 775}}, "laptop"))
        << "not under the menu bar";

    EXPECT_EQ(GhostPlacement::onConnectedDisplays(onMonitor, {}, {laptop}),
              slot({{0, 25}, {1000, 775}}, "laptop"))
        << "a display that the saved layout does not know";
    EXPECT_EQ(GhostPlacement::onConnectedDisplays(onMonitor, saved, {}), onMonitor);
}

} // namespace
} // namespace vantrel

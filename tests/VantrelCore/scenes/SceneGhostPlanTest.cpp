#include "VantrelCore/scenes/SceneGhostPlan.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace vantrel::SceneGhostPlan {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Rect anywhere{{0, 0}, {100, 100}};

Slot slot(std::int64_t index, const std::string& bundleID) {
    return {index, bundleID, anywhere};
}

LiveWindow standard(std::int64_t id, const std::string& bundleID, double area, std::int64_t zOrder = 0) {
    return {id, bundleID, true, area, zOrder};
}

LiveWindow panel(std::int64_t id, const std::string& bundleID, double area) {
    return {id, bundleID, false, area, 0};
}

WindowRecord record(std::optional<bool> isGhost) {
    WindowRecord window;
    window.title = "saved";
    window.frame = anywhere;
    window.isGhost = isGhost;
    return window;
}

} // namespace

TEST(SceneGhostPlan, AnApplicationThatDoesNotRunIsLaunchedOnceForAllItsSlots) {
    const Plan result = plan({slot(0, "mail"), slot(1, "notes"), slot(2, "mail")}, {}, {"calendar"});
    EXPECT_THAT(result.claims, IsEmpty());
    EXPECT_THAT(result.launchBundleIDs, ElementsAre("mail", "notes"));
}

TEST(SceneGhostPlan, ARunningApplicationWithTooFewWindowsIsNotLaunchedAgain) {
    const Plan result =
        plan({slot(4, "mail"), slot(1, "mail"), slot(2, "mail")},
             {standard(7, "mail", 10), standard(8, "mail", 20), standard(9, "other", 99)}, {"mail"});
    EXPECT_THAT(result.claims, ElementsAre(Claim{1, 7}, Claim{4, 8}));
    EXPECT_THAT(result.launchBundleIDs, IsEmpty());
}

TEST(SceneGhostPlan, TheFirstSlotGetsTheMostPreferredWindow) {
    const struct {
        const char* rule;
        std::vector<LiveWindow> live;
        std::int64_t chosen;
    } cases[] = {
        {"standard before a larger panel", {panel(1, "mail", 900), standard(2, "mail", 10)}, 2},
        {"a panel when there is nothing else", {panel(1, "mail", 900)}, 1},
        {"the larger", {standard(1, "mail", 10), standard(2, "mail", 20)}, 2},
        {"of equal size the one nearer the front",
         {standard(1, "mail", 10, 5), standard(2, "mail", 10, 3)},
         2},
        {"otherwise the smaller id", {standard(6, "mail", 10, 3), standard(2, "mail", 10, 3)}, 2},
        {"in given order beside an unknown area",
         {standard(6, "mail", NAN, 3), standard(2, "mail", 10, 0)},
         6},
        {"standard also with an unknown area", {panel(1, "mail", 10), standard(2, "mail", NAN)}, 2},
    };
    for (const auto& [rule, live, chosen] : cases) {
        EXPECT_THAT(plan({slot(0, "mail")}, live, {"mail"}).claims, ElementsAre(Claim{0, chosen})) << rule;
    }
}

TEST(SceneGhostPlan, WithoutSlotsNothingHappens) {
    EXPECT_EQ(plan({}, {standard(1, "mail", 10)}, {}), Plan{});
}

RC_GTEST_PROP(SceneGhostPlan, EverySlotAndEveryWindowIsClaimedAtMostOnceAndByItsApplication, ()) {
    const auto bundles =
        rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>("a", "b", "c"));
    std::vector<Slot> slots;
    for (const auto& bundleID : *bundles) {
        slots.push_back(slot(std::ssize(slots), bundleID));
    }
    std::vector<LiveWindow> live;
    for (const auto& bundleID : *bundles) {
        live.push_back({std::ssize(live), bundleID, *rc::gen::arbitrary<bool>(),
                        *rc::gen::element(1.0, 2.0, std::nan("")), *rc::gen::inRange<std::int64_t>(0, 3)});
    }
    const Plan result =
        plan(slots, live, *rc::gen::element(std::set<std::string>{}, std::set<std::string>{"a"}));

    std::set<std::int64_t> usedWindows;
    std::int64_t lastSlot = -1;
    for (const auto& claim : result.claims) {
        RC_ASSERT(claim.slotIndex > lastSlot);
        lastSlot = claim.slotIndex;
        RC_ASSERT(usedWindows.insert(claim.windowID).second);
        RC_ASSERT(slots.at(static_cast<std::size_t>(claim.slotIndex)).bundleID ==
                  live.at(static_cast<std::size_t>(claim.windowID)).bundleID);
    }
    for (const std::string bundleID : {"a", "b", "c"}) {
        const auto wanted = std::ranges::count(slots, bundleID, &Slot::bundleID);
        const auto present = std::ranges::count(live, bundleID, &LiveWindow::bundleID);
        const auto claimed = std::ranges::count_if(result.claims, [&](const Claim& claim) {
            return slots.at(static_cast<std::size_t>(claim.slotIndex)).bundleID == bundleID;
        });
        RC_ASSERT(claimed == std::min(wanted, present));
    }
}

TEST(SceneGhostPlan, SolidifyTakesOverWhatFillsThePlacedGhosts) {
    const Rect placed{{10, 20}, {300, 200}};
    const auto result = solidify({record(true), record(true), record(false), record({}), record(true)},
                                 {0, 2, 3, 4, 9, -1}, {{0, "live"}, {1, "live"}, {2, "live"}, {4, ""}},
                                 {{0, placed}, {1, placed}, {3, placed}, {4, {{10, 20}, {1.0, 200}}}});
    ASSERT_EQ(result.size(), 5U);
    auto solid = record(false);
    EXPECT_EQ(result[4], solid) << "no title and too narrow a frame leave what was saved";
    solid.title = "live";
    solid.frame = placed;
    EXPECT_EQ(result[0], solid);
    EXPECT_EQ(result[1], record(true)) << "not placed";
    EXPECT_EQ(result[2], record(false)) << "no ghost";
    EXPECT_EQ(result[3], record({})) << "no ghost";
}

} // namespace vantrel::SceneGhostPlan

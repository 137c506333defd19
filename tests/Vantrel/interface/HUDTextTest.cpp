#include "Vantrel/interface/HUDText.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

RestoreReport::Item item(const char* bundleID, RestoreReport::Kind kind, double movedBy) {
    RestoreReport::Item item;
    item.bundleID = bundleID;
    item.outcome.kind = kind;
    item.move =
        RestoreReport::Move{.window = {}, .from = {}, .target = {}, .achieved = Rect{{movedBy, 0}, {}}};
    return item;
}

RestoreReport::Item gone(const char* bundleID) {
    RestoreReport::Item item;
    item.bundleID = bundleID;
    item.outcome.kind = RestoreReport::Kind::skipped;
    return item;
}

std::string shown(const HUDEvent& event) {
    const auto [headline, detail, symbol] = HUDText::of(event);
    return std::string(symbol) + ": " + headline + (detail.empty() ? "" : " | ") + detail;
}

std::string shownFor(std::vector<RestoreReport::Item> items, const char* cause = "", double seconds = 0.2) {
    return shown(HUD::Done{RestoreTally::of({.items = std::move(items)}), seconds, cause});
}

TEST(HUDText, SaysWhatARestoreMovedWhatStoodRightAndWhatIsMissing) {
    using enum RestoreReport::Kind;
    const auto moved = item("a", restored, 5);
    const auto right = item("b", restored, 0);
    const auto stubborn = item("c", failed, 0);
    EXPECT_EQ(shownFor({}), "info: No windows were put back");
    EXPECT_EQ(shownFor({moved, moved}, "", 1.24), "check: 2 windows back in place | in 1.2 seconds");
    EXPECT_EQ(shownFor({moved, right, right}), "check: 1 moved, 2 already right");
    EXPECT_EQ(shownFor({right, right}, "Undone"), "check: All 2 windows already in place | Undone");
    EXPECT_EQ(shownFor({moved, right, gone("d"), gone("d"), gone("e")}),
              "check: 2 of 5 windows back | 2 apps not open");
    EXPECT_EQ(shownFor({moved, gone("a")}, "LG UltraFine reconnected", 2),
              "check: 1 of 2 windows back | LG UltraFine reconnected · 1 window closed");
    EXPECT_EQ(shownFor({moved, stubborn}), "warn: 1 of 2 windows back | 1 window could not be moved");
}

TEST(HUDText, AnswersRequestsThatCameToNothing) {
    EXPECT_EQ(shown(HUD::Refused{"Nothing is remembered for this desk yet.", HotKeyCombo{}}).substr(0, 48),
              "info: Nothing is remembered for this desk yet | ");
    EXPECT_EQ(shown(HUD::Refused{"A restore is running. Try again when it has finished."}),
              "info: A restore is running | Try again when it has finished");
    EXPECT_EQ(shown(HUD::Stashed{11, std::nullopt}), "stash: Desk put aside | 11 windows");
}

} // namespace
} // namespace vantrel

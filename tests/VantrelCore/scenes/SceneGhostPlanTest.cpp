#include "VantrelCore/scenes/SceneGhostPlan.h"

#include "tests/VantrelCore/DeskRecords.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::SceneGhostPlan {

namespace {

using testing::ElementsAre;

const Rect anywhere{{0, 0}, {100, 100}};

WindowRecord record(std::optional<bool> isGhost, const std::string& title = "saved",
                    const Rect& frame = anywhere) {
    WindowRecord window = windowOf("mail", frame);
    window.title = title;
    window.isGhost = isGhost;
    return window;
}

} // namespace

TEST(SceneGhostPlan, LaunchesAnAppOnceForAllItsSlots) {
    EXPECT_EQ(plan({{0, "mail", anywhere}, {1, "notes", anywhere}, {2, "mail", anywhere}}, {}, {"calendar"}),
              (Plan{{}, {"mail", "notes"}}));
    EXPECT_EQ(plan({{4, "mail", anywhere}, {1, "mail", anywhere}, {2, "mail", anywhere}},
                   {{7, "mail", true, 10, 0}, {8, "mail", true, 20, 0}, {9, "other", true, 99, 0}}, {"mail"}),
              (Plan{{{1, 7}, {4, 8}}, {}}))
        << "it runs, with too few windows";
    EXPECT_EQ(plan({}, {{1, "mail", true, 10, 0}}, {}), Plan{});
}

TEST(SceneGhostPlan, TheFirstSlotTakesTheBestWindow) {
    const std::tuple<const char*, std::vector<LiveWindow>, std::int64_t> cases[] = {
        {"standard before a larger panel", {{1, "mail", false, 900, 0}, {2, "mail", true, 10, 0}}, 2},
        {"a panel when there is nothing else", {{1, "mail", false, 900, 0}}, 1},
        {"the larger", {{1, "mail", true, 10, 0}, {2, "mail", true, 20, 1}}, 2},
        {"of equal size the one nearer the front", {{1, "mail", true, 10, 5}, {2, "mail", true, 10, 3}}, 2},
        {"otherwise the smaller id", {{6, "mail", true, 10, 3}, {2, "mail", true, 10, 3}}, 2},
        {"in given order beside an unknown area", {{6, "mail", true, NAN, 3}, {2, "mail", true, 10, 0}}, 6},
        {"standard also with an unknown area", {{1, "mail", false, 10, 0}, {2, "mail", true, NAN, 0}}, 2},
    };
    for (const auto& [rule, live, chosen] : cases) {
        EXPECT_THAT(plan({{0, "mail", anywhere}}, live, {"mail"}).claims, ElementsAre(Claim{0, chosen}))
            << rule;
    }
}

TEST(SceneGhostPlan, SolidifiesTheGhostsThatWereFilled) {
    const Rect placed{{10, 20}, {300, 200}};
    const Rect tooNarrow{{10, 20}, {1.0, 200}};
    const auto result = solidify({record(true), record(true), record(false), record({}), record(true)},
                                 {0, 2, 3, 4, 9, -1}, {{0, "live"}, {1, "live"}, {2, "live"}, {4, ""}},
                                 {{0, placed}, {1, placed}, {3, placed}, {4, tooNarrow}});
    // Those in the middle were not placed or are no ghosts; the last was given no title and no usable frame.
    EXPECT_THAT(result, ElementsAre(record(false, "live", placed), record(true), record(false), record({}),
                                    record(false)));
}

} // namespace vantrel::SceneGhostPlan

// Where windows go: pure decisions on records.
#include "VantrelCore/windows/CascadeLayout.h"
#include "VantrelCore/windows/DriftGuard.h"
#include "VantrelCore/windows/GhostPlacement.h"
#include "VantrelCore/windows/LaunchPlacement.h"
#include "VantrelCore/windows/LayoutTranslation.h"
#include "VantrelCore/windows/MissingAppsPolicy.h"
#include "VantrelCore/windows/RuleApplication.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;

const Rect screen{{100, 25}, {1000, 800}};

WindowRecord cascaded(Size size, std::int64_t zOrder) {
    return windowOf("app", {{}, size}, "", zOrder);
}

TEST(CascadeLayout, StepsEachWindowFromTheOneBehindAndFitsItToTheScreen) {
    // Three steps fit below it, more beside it.
    const Size size{500, 740};
    EXPECT_THAT(
        CascadeLayout::fallbackFrames(
            {cascaded(size, 0), cascaded({0, 0}, 1), cascaded({5000, 100}, 2), cascaded(size, 2)}, screen),
        ElementsAre(Rect{{184, 25}, size}, Rect{{156, 81}, {600, 560}}, Rect{{100, 53}, {1000, 100}},
                    Rect{{100, 25}, size}));
    EXPECT_THAT(CascadeLayout::fallbackFrames({cascaded(size, 0)}, Rect{}), ElementsAre(Rect{{}, size}));
}

// Feeds a drift for 'd', a frame just within the tolerance for '.', a reset for 'r'; '!' where the guard
// acts.
std::string acts(int required, const std::string& story) {
    const auto layoutWithWindowAt = [](double x) {
        return layoutOf({windowOf("app", {{x, 0}, {800, 600}})});
    };
    DriftGuard guard(required);
    std::string result;
    for (const char event : story) {
        if (event == 'r') {
            guard.reset();
        }
        const double x = event == 'd' ? 2.01 : 2.0;
        result += event != 'r' && guard.observe(layoutWithWindowAt(x), layoutWithWindowAt(0)) ? '!' : '-';
    }
    return result;
}

TEST(DriftGuard, ActsAfterTheRequiredDriftsInARowThenStartsOver) {
    EXPECT_EQ(acts(3, "dd.dddddd"), "-----!--!");
    EXPECT_EQ(acts(2, "drdd"), "---!");
    for (const int required : {1, 0, -7}) {
        EXPECT_EQ(acts(required, "d.d"), "!-!") << required;
    }
}

const DisplayInfo laptop = displayOf("laptop", {{0, 0}, {1000, 800}}, Rect{{0, 25}, {1000, 775}});
const DisplayInfo monitor = displayOf("monitor", {{1000, 0}, {2000, 1600}}, Rect{{1000, 0}, {2000, 1560}});

TEST(GhostPlacement, ChoosesTheDisplayWithTheLargestUsableArea) {
    const auto mostlyTaken = displayOf("wall", {{0, 0}, {4000, 4000}}, Rect{{0, 0}, {100, 4000}});
    const auto twin = displayOf("twin", monitor.frame, monitor.visibleFrame);
    EXPECT_EQ(GhostPlacement::largestDisplay({laptop, mostlyTaken, twin, monitor})->uuid, "twin");
    EXPECT_EQ(GhostPlacement::largestDisplay({}), std::nullopt);
}

TEST(GhostPlacement, NewSlotsStepAsideUntilEveryPlaceIsTaken) {
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
    const std::tuple<const char*, Rect, std::vector<DisplayInfo>, std::vector<DisplayInfo>, std::string, Rect>
        cases[] = {
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

// Windows of the editor, behind one of the browser.
Layout remembering(const std::vector<std::pair<std::string, Rect>>& editorWindows) {
    Layout layout = layoutOf({windowOf("browser", {{1, 1}, {1000, 750}}, "left")});
    for (const auto& [displayUUID, frame] : editorWindows) {
        layout.windows.push_back(windowOf("editor", frame, displayUUID));
    }
    return layout;
}

TEST(LaunchPlacement, PrefersRulesThenTheClosestRememberedSize) {
    const std::vector displays{displayOf("left", {{0, 0}, {1440, 900}}),
                               displayOf("right", {{1440, 0}, {2560, 1440}}, Rect{{1440, 0}, {100, 100}})};
    const Rect newWindow{{77, 88}, {1000, 800}};
    const Rect small{{10, 10}, {800, 600}};
    const Rect large{{1500, 20}, {1200, 900}};
    const Rect asClose{{20, 20}, {1200, 1000}};
    const Rect exact{{30, 30}, {1000, 800}};
    const Rect centred{{2220, 320}, {1000, 800}};
    const std::vector toRight{forcing("editor", "right")};
    const std::tuple<const char*, std::vector<AppRule>, std::optional<Layout>, std::optional<Rect>> cases[] =
        {
            {"nothing stored", {}, std::nullopt, std::nullopt},
            {"nothing remembered of this application", {}, remembering({}), std::nullopt},
            {"one window", {}, remembering({{"gone", large}}), large},
            {"the closest size", {}, remembering({{"", small}, {"", exact}, {"", large}}), exact},
            {"the earlier of two as close", {}, remembering({{"", small}, {"", asClose}}), small},
            {"the larger of them earlier", {}, remembering({{"", asClose}, {"", small}}), asClose},
            {"ignored, though forced too",
             {forcing("editor", "right"), ignoring("editor")},
             remembering({{"right", large}}),
             std::nullopt},
            {"another application's rule",
             {forcing("browser", "right")},
             remembering({{"left", small}}),
             small},
            {"forced display away",
             {forcing("editor", "gone")},
             remembering({{"gone", large}}),
             std::nullopt},
            {"no display: only placed last", {forcing("editor", "")}, remembering({{"", small}}), small},
            {"on the forced display", toRight, remembering({{"left", exact}, {"right", large}}), large},
            {"elsewhere: centred on the whole display", toRight, remembering({{"left", exact}}), centred},
            {"forced without a stored layout", toRight, std::nullopt, centred},
            {"the first rule counts", {toRight[0], forcing("editor", "gone")}, remembering({}), centred},
        };
    for (const auto& [what, rules, layout, expected] : cases) {
        EXPECT_EQ(LaunchPlacement::target("editor", newWindow, rules, layout, displays), expected) << what;
    }
}

TEST(LaunchPlacement, GivesEachRememberedPlaceToOneWindow) {
    const Rect first{{10, 10}, {800, 600}};
    const Rect second{{300, 40}, {800, 600}};
    const Rect opened{{77, 88}, {800, 600}};
    const auto layout = remembering({{"left", first}, {"left", second}});
    using Targets = std::vector<std::optional<Rect>>;
    EXPECT_EQ(LaunchPlacement::targets("editor", {opened, opened, opened}, {}, {}, layout, {}),
              (Targets{first, second, std::nullopt}));
    const Rect nearFirst{{11, 9}, {800, 601}};
    EXPECT_EQ(LaunchPlacement::targets("editor", {opened, opened}, {nearFirst, opened}, {}, layout, {}),
              (Targets{second, std::nullopt}))
        << "another process's window stands at the first";
    EXPECT_EQ(LaunchPlacement::targets("editor", {opened}, {first}, {}, {}, {}), Targets{std::nullopt});
}

DisplayInfo builtin(const std::string& uuid, const Rect& frame) {
    DisplayInfo display = displayOf(uuid, frame);
    display.isBuiltin = true;
    return display;
}

TEST(LayoutTranslation, KeepsWindowsOnTheirDisplayOrMovesThemToItsSubstitute) {
    const DisplayInfo panel = builtin("panel", {{0, 0}, {1000, 800}});
    const DisplayInfo left = displayOf("left", {{1000, 0}, {2000, 1000}});
    const DisplayInfo right = displayOf("right", {{3000, 0}, {2000, 1000}});
    const DisplayInfo wandered = displayOf("left", {{-2000, 0}, {2000, 1000}});
    const DisplayInfo other = displayOf("other", {{1000, 0}, {500, 500}});
    const DisplayInfo otherPanel = builtin("other panel", {{0, 0}, {500, 400}});
    const std::tuple<const char*, std::vector<DisplayInfo>, DisplayInfo, std::vector<DisplayInfo>, Rect>
        cases[] = {
            {"there as it was", {panel, left}, left, {panel, left}, {{1200, 100}, {200, 100}}},
            {"there at another place", {panel, left}, left, {panel, wandered}, {{-1800, 100}, {200, 100}}},
            {"another monitor", {panel, left}, left, {panel, other}, {{1050, 50}, {50, 50}}},
            {"another laptop", {panel, left}, panel, {other, otherPanel}, {{50, 40}, {50, 40}}},
            {"second of two gone", {panel, left, right}, right, {panel, other}, {{100, 80}, {100, 80}}},
            {"no monitor left", {panel, left}, left, {panel}, {{100, 80}, {100, 80}}},
            {"a display that was not saved", {panel}, left, {panel}, {{800, 100}, {200, 100}}},
        };
    for (const auto& [what, saved, on, present, expected] : cases) {
        // 10 % in from its display's corner and a tenth of its size.
        const Rect& whole = on.frame;
        const Size tenth{whole.width() / 10, whole.height() / 10};
        Layout layout = layoutOf(
            {windowOf("app", {{whole.minX() + tenth.width, whole.minY() + tenth.height}, tenth}, on.uuid)});
        layout.displays = saved;
        const Layout moved = LayoutTranslation::onto(layout, "desk", present);
        EXPECT_TRUE(approxEqual(moved.windows.front().frame, expected, 0.001)) << what;
    }
}

TEST(LayoutTranslation, FitsWindowsToTheUsableFrameAndNamesThisDesk) {
    const DisplayInfo withBar = displayOf("bar", {{0, 0}, {1000, 800}}, Rect{{0, 100}, {1000, 700}});
    const DisplayInfo gone = displayOf("gone", withBar.frame);
    Layout layout = layoutOf({windowOf("app", gone.frame, "gone")});
    layout.displays = {gone};
    Layout expected = layoutOf({windowOf("app", withBar.usableFrame(), "bar")});
    expected.configID = "desk";
    expected.displays = {withBar};
    EXPECT_EQ(LayoutTranslation::onto(layout, "desk", {withBar}), expected);
    EXPECT_EQ(LayoutTranslation::onto(layout, "desk", {}).windows, layout.windows);
}

TEST(MissingAppsPolicy, ListsMissingAppsOnceInSceneOrderWithoutThisProgram) {
    EXPECT_THAT(
        MissingAppsPolicy::missingBundleIDs({"own", "c", "a", "c", "b", "own", "a"}, {"b", "z"}, "own"),
        ElementsAre("c", "a"));
}

TEST(MissingAppsPolicy, ChecksEachAppForWindowsOnce) {
    std::vector<std::string> asked;
    const auto lacking = MissingAppsPolicy::bundlesLackingWindows({"b", "own", "a", "b", "c", "a"}, "own",
                                                                  [&](const std::string& bundleID) {
                                                                      asked.push_back(bundleID);
                                                                      return bundleID == "a";
                                                                  });
    EXPECT_THAT(lacking, ElementsAre("b", "c"));
    EXPECT_THAT(asked, ElementsAre("b", "a", "c"));
}

const Rect leftArea{{0, 0}, {1000, 800}};
const Rect rightArea{{1000, -200}, {2000, 1600}};
const Rect onLeft{{100, 400}, {300, 200}};
const Rect onRight{{1200, 600}, {600, 400}};

TEST(RuleApplication, CollectsTheAppsToIgnoreAndToRestoreLast) {
    std::vector rules{forcing("last", "left"), ignoring("ignored"), ignoring("both")};
    rules[0].restoreLast = true;
    rules[1].restoreLast = false;
    EXPECT_THAT(RuleApplication::ignoredBundleIDs(rules), ElementsAre("both", "ignored"));
    EXPECT_THAT(RuleApplication::restoreLastBundleIDs(rules), ElementsAre("last"));
}

TEST(RuleApplication, TranslatesAFrameInProportion) {
    EXPECT_EQ(RuleApplication::translate(onLeft, leftArea, rightArea), onRight);
    EXPECT_EQ(RuleApplication::translate(onRight, rightArea, leftArea), onLeft);
    EXPECT_EQ(RuleApplication::translate(onLeft, {{0, 0}, {0, 800}}, rightArea), onLeft);
    EXPECT_EQ(RuleApplication::translate(onLeft, {{0, 0}, {1000, -1}}, rightArea), onLeft);
}

TEST(RuleApplication, DropsIgnoredAppsAndMovesForcedOnes) {
    const auto other = windowOf("other", {{1, 2}, {3, 4}}, "left");
    const auto already = windowOf("forced", {{1500, 100}, {300, 200}}, "right");
    const auto away = windowOf("away", leftArea, "left");
    Layout layout =
        layoutOf({windowOf("ignored", leftArea, "left"), other, already, windowOf("forced", onLeft, "left"),
                  windowOf("forced", {{-500, 0}, {3000, 100}}, "unplugged"), away});
    layout.configID = "desk";
    layout.displays = {displayOf("left", leftArea), displayOf("right", rightArea)};
    const std::vector rules{ignoring("ignored"), forcing("forced", "right"), forcing("away", "gone"),
                            forcing("away", "right")};

    Layout expected = layout;
    expected.windows = {other, already, windowOf("forced", onRight, "right"),
                        // No source to translate from: inside the display.
                        windowOf("forced", {{1000, 0}, {2000, 100}}, "right"),
                        // The first of two rules decides, also where its display is not there.
                        away};
    EXPECT_EQ(RuleApplication::apply(rules, layout, layout.displays), expected);
    EXPECT_EQ(RuleApplication::apply({}, layout, layout.displays), layout);

    expected.windows = {layout.windows.begin() + 1, layout.windows.end()};
    EXPECT_EQ(RuleApplication::apply(rules, layout, {layout.displays[0]}), expected);
}

} // namespace
} // namespace vantrel

// Which saved window is which live one, and how windows are stacked.
#include "VantrelCore/model/PlaceTarget.h"
#include "VantrelCore/windows/StackingPlan.h"
#include "VantrelCore/windows/WindowMatcher.h"
#include "VantrelCore/windows/WindowNotes.h"
#include "VantrelCore/windows/WindowPairing.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using Identities = std::vector<WindowIdentity>;
using Pairs = std::vector<MatchResult::Pair>;
using StackingPlan::Step;
using testing::ElementsAre;
using Windows = std::vector<WindowID>;

// Windows of one application, front to back.
Identities windows(const std::vector<std::string_view>& titles) {
    Identities result;
    for (const auto title : titles) {
        result.emplace_back("app", title, static_cast<std::int64_t>(result.size()));
    }
    return result;
}

TEST(WindowMatcher, PrefersExactTitlesToNearOnes) {
    const auto saved = windows({"Report draft.txt - Edited", "Report draft.txt"});
    const auto current = windows({"Report draft.txt", "Other"});
    EXPECT_EQ(WindowMatcher::match(saved, current).pairs,
              (Pairs{{0, 1, Pairing::order}, {1, 0, Pairing::sameTitle}}));
}

TEST(WindowMatcher, NearTitlesShareAWholeEightCharacterPrefixOrTenCharacters) {
    const std::tuple<std::string_view, std::string_view, bool> cases[] = {
        {"Report draft.txt", "Report draft.txt - Edited", true},
        {"Report draft.txt - Edited", "Report draft.txt", true},
        {"ABCDEFGH", "abcdefgh", true},
        {"abcdefg", "abcdefg - Edited", false},
        {"abcdefghi 1", "abcdefghi 2", true},
        {"abcdefghi1", "abcdefghi2", false},
        {"Notes", "Notes 2", false},
        {"éèêëàâä", "éèêëàâä 1", false}, // seven characters, fourteen bytes
        {"ÉÈÊËÀÂÄÔ", "éèêëàâäô 1", true},
        {"abcdefge", "abcdefge\u0301 x", false}, // the accent makes another character
    };

    for (const auto& [saved, current, isNear] : cases) {
        // An unrelated window in front would be taken if only the order counted.
        const auto result = WindowMatcher::match(windows({saved}), windows({"#", current}));
        EXPECT_EQ(result.pairs, (Pairs{{0, isNear ? 1U : 0U, isNear ? Pairing::nearTitle : Pairing::order}}))
            << saved << " / " << current;
    }
}

TEST(WindowMatcher, PairsTheRestFrontToBackWithinAnApp) {
    // Stacking order, not index, on both sides; equal depths keep their index order. Applications are told
    // apart exactly.
    const Identities saved{{"app", "a", 2}, {"app", "b", 1}, {"app", "c", 1}, {"App", "x", 0}};
    const Identities current{{"app", "x", 9}, {"app", "y", 4}, {"other", "a", 0}};
    EXPECT_EQ(WindowMatcher::match(saved, current),
              (MatchResult{{{1, 1, Pairing::order}, {2, 0, Pairing::order}}, {0, 3}, {2}}));
    EXPECT_EQ(WindowMatcher::match({{"app", "", 5}, {"app", "", 0}}, {{"app", "", 1}, {"app", "", 3}}).pairs,
              (Pairs{{0, 1}, {1, 0}}));
    EXPECT_EQ(WindowMatcher::match({}, current), (MatchResult{{}, {}, {0, 1, 2}}));
}

constexpr WindowID first{1};
constexpr WindowID second{2};
constexpr WindowID third{3};

const PlaceStates minimized{.isMinimized = true};

// A window of one application.
WindowRecord record(const std::string& title, std::int64_t zOrder, const PlaceStates& states = {}) {
    return {.bundleID = "app",
            .appName = "App",
            .title = title,
            .frame = {{0, 0}, {100, 100}},
            .displayUUID = "",
            .zOrder = zOrder,
            .isGhost = std::nullopt,
            .states = states};
}

TEST(WindowPairing, RecognisesAWindowUnderAnotherTitleAndAtAnotherDepth) {
    const std::vector saved{record("News", 0), record("Tickets", 1)};
    const std::vector<LiveWindow> live{{record("Tickets", 0), first}, {record("Weather", 1), second}};
    EXPECT_EQ(WindowPairing::pair(saved, {first, second}, live).pairs,
              (Pairs{{0, 0, Pairing::known}, {1, 1, Pairing::known}}));
    // The second was closed: the first does not take its place, a new window may.
    const std::vector<LiveWindow> others{{record("Tickets", 0), first}, {record("Mail", 1), third}};
    EXPECT_EQ(WindowPairing::pair(saved, {first, second}, others).pairs,
              (Pairs{{0, 0, Pairing::known}, {1, 1, Pairing::order}}));
    EXPECT_THAT(WindowPairing::pair(saved, {first, second}, {others[0]}).unmatchedSaved, ElementsAre(1));
    // Ids of another application's windows say nothing.
    std::vector<LiveWindow> foreign = live;
    foreign[0].record.bundleID = "other";
    EXPECT_THAT(WindowPairing::pair(saved, {first, std::nullopt}, foreign).unmatchedCurrent, ElementsAre(0));
}

TEST(WindowPairing, AMinimizedWindowIsFoundByItsTitleButNotByOrder) {
    const std::vector<LiveWindow> live{{record("Notes", 0), first},
                                       {record("Plan", 1, minimized), second, false}};
    EXPECT_EQ(WindowPairing::pair({record("Plan", 0)}, {}, {live[1]}).pairs,
              (Pairs{{0, 0, Pairing::sameTitle}}));
    EXPECT_EQ(WindowPairing::pair({record("Budget", 0), record("Minutes", 1)}, {}, live).pairs,
              (Pairs{{0, 0, Pairing::order}}));
    EXPECT_EQ(WindowPairing::pair({record("Plan", 0, minimized), record("Notes", 1)}, {}, live).pairs,
              (Pairs{{0, 1, Pairing::sameTitle}, {1, 0, Pairing::sameTitle}}));
}

TEST(WindowNotes, ApplyToCopiesOfAnArrangementAndGrowWithRestores) {
    Layout layout;
    layout.savedAt = Date(std::chrono::milliseconds(5700));
    layout.windows = {record("a", 0), record("a", 1)};
    layout.otherWindows = {record("hidden", 2, minimized)};
    WindowNotes notes;
    notes.note(layout, {{layout.windows[0], first}, {layout.windows[1], second}});
    // As read from a file, and with a window left out.
    Layout copy = layout.withOtherWindows();
    copy.savedAt = Date(std::chrono::seconds(5));
    copy.windows.erase(copy.windows.begin());
    EXPECT_THAT(notes.find(copy), ElementsAre(second, std::nullopt));

    RestoreReport report;
    report.items.resize(1);
    report.items[0].saved = 1;
    report.items[0].move = RestoreReport::Move{.window = third, .from = {}, .target = {}};
    notes.note(copy, report);
    EXPECT_THAT(notes.find(copy), ElementsAre(second, third));

    // A known window keeps its note while it stands in its place, even among twins.
    notes.note(layout, {{record("a", 0), second}, {record("a", 1), first}});
    EXPECT_THAT(notes.find(layout), ElementsAre(first, second));

    Layout another;
    for (std::size_t i = 0; i < WindowNotes::capacity; ++i) {
        another.savedAt += std::chrono::hours(1);
        notes.note(another, std::vector<LiveWindow>{});
    }
    EXPECT_THAT(notes.find(layout), ElementsAre(std::nullopt, std::nullopt));
}

TEST(PlaceTarget, IsNeededOnlyWhenTheFrameIsNotEnough) {
    const WindowRecord ordinary = record("a", 0);
    WindowRecord maximized = ordinary;
    maximized.states.isMaximizedVertically = true;
    WindowRecord elsewhere = ordinary;
    elsewhere.desktop = 1;
    EXPECT_FALSE(PlaceTarget::of(ordinary, ordinary));
    EXPECT_FALSE(PlaceTarget::of(ordinary, maximized)) << "the frame tells, and older files know no more";
    EXPECT_FALSE(PlaceTarget::of(ordinary, elsewhere)) << "its desktop is not known";
    EXPECT_TRUE(PlaceTarget::of(maximized, maximized)) << "it must leave the state to move";
    EXPECT_TRUE(PlaceTarget::of(ordinary, record("a", 0, minimized)));
    EXPECT_TRUE(PlaceTarget::of(elsewhere, ordinary)->isReached({}, 1));
    EXPECT_FALSE(PlaceTarget::of(elsewhere, ordinary)->isReached({.isOnAllDesktops = true}, std::nullopt));
}

constexpr WindowID a{1};
constexpr WindowID b{2};
constexpr WindowID c{3};
constexpr WindowID d{4};
constexpr WindowID gone{9};

TEST(StackingPlan, OrdersTheWantedWindowsAmongThemselvesBehindTheFrontMostOne) {
    struct Case {
        Windows stack;
        Windows wanted;
        std::vector<Step> steps;
    };
    const Case cases[] = {
        {{a, b, c, d}, {b, c, d}, {}},
        {{a, b, c, d}, {d, b}, {{d, b}}},
        {{a, b, c, d}, {d, c, b}, {{c, b}, {d, c}}},
        {{a, b, c, d}, {d, a, gone, b}, {{d, b}}},
        {{a, b, c, d}, {b, a}, {}},
        {{a, b}, {}, {}},
        {{}, {a, b}, {}},
    };
    for (const auto& [stack, wanted, steps] : cases) {
        EXPECT_EQ(StackingPlan::steps(stack, wanted), steps);
    }
}

} // namespace
} // namespace vantrel

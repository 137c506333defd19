#include "VantrelCore/windows/WindowMatcher.h"

#include "tests/VantrelCore/windows/PlainMatcher.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <map>
#include <rapidcheck/gtest.h>

namespace vantrel {

// Found by rapidcheck when it prints a counterexample.
static void showValue(const MatchResult& result, std::ostream& out) {
    for (const auto& pair : result.pairs) {
        out << pair.saved << "-" << pair.current << " ";
    }
}

namespace {

using Identities = std::vector<WindowIdentity>;
using Pairs = std::vector<MatchResult::Pair>;

// Windows of one application, front to back.
Identities windows(const std::vector<std::string_view>& titles) {
    Identities result;
    for (const auto title : titles) {
        result.emplace_back("app", title, static_cast<std::int64_t>(result.size()));
    }
    return result;
}

TEST(WindowMatcher, ExactTitlesWinOverNearOnes) {
    const auto saved = windows({"Report draft.txt - Edited", "Report draft.txt"});
    const auto current = windows({"Report draft.txt", "Other"});
    EXPECT_EQ(WindowMatcher::match(saved, current).pairs, (Pairs{{0, 1}, {1, 0}}));
}

TEST(WindowMatcher, NearTitlesShareEightCharactersAsABeginningOrTenAnyway) {
    const struct {
        std::string_view saved;
        std::string_view current;
        bool isNear;
    } cases[] = {
        {"Report draft.txt", "Report draft.txt - Edited", true},
        {"Report draft.txt - Edited", "Report draft.txt", true},
        {"ABCDEFGH", "abcdefgh", true},
        {"abcdefgh", "abcdefgh - Edited", true},
        {"abcdefg", "abcdefg - Edited", false},
        {"abcdefghi", "abcdefghi - Edited", true},
        {"abcdefghi", "abcdefgh", true},
        {"abcdefghij", "abcdefghi", true},
        {"abcdefghi 1", "abcdefghi 2", true},
        {"abcdefghX1", "abcdefghY2", false},
        {"abcdefghX", "abcdefghY", false},
        {"Notes", "Notes 2", false},
        {"éèêëàâä", "éèêëàâä 1", false}, // seven characters, fourteen bytes
        {"ÉÈÊËÀÂÄÔ", "éèêëàâäô 1", true},
        {"abcdefge", "abcdefge\u0301 x", false}, // the accent makes another character
    };

    for (const auto& [saved, current, isNear] : cases) {
        // An unrelated window in front would be taken if only the order counted.
        const auto result = WindowMatcher::match(windows({saved}), windows({"#", current}));
        EXPECT_EQ(result.pairs, (Pairs{{0, isNear ? 1U : 0U}})) << saved << " / " << current;
    }
}

TEST(WindowMatcher, TheRestIsPairedFrontToBack) {
    // Stacking order, not index, on both sides; equal depths keep their index order.
    const Identities saved{{"app", "a", 2}, {"app", "b", 1}, {"app", "c", 1}};
    const Identities current{{"app", "x", 9}, {"app", "y", 4}};
    const auto result = WindowMatcher::match(saved, current);
    EXPECT_EQ(result.pairs, (Pairs{{1, 1}, {2, 0}}));
    EXPECT_EQ(result.unmatchedSaved, (std::vector<std::size_t>{0}));
    EXPECT_EQ(result.unmatchedCurrent, (std::vector<std::size_t>{}));
}

TEST(WindowMatcher, EqualTitlesArePairedFrontMostWithFrontMost) {
    const Identities saved{{"app", "", 5}, {"app", "", 0}};
    const Identities current{{"app", "", 1}, {"app", "", 3}};
    EXPECT_EQ(WindowMatcher::match(saved, current).pairs, (Pairs{{0, 1}, {1, 0}}));
}

TEST(WindowMatcher, ApplicationsAreToldApartExactly) {
    const Identities saved{{"org.Notes", "same", 0}, {"gone", "x", 1}};
    const Identities current{{"org.notes", "same", 0}, {"new", "x", 1}};
    const auto result = WindowMatcher::match(saved, current);
    EXPECT_EQ(result.pairs, Pairs{});
    EXPECT_EQ(result.unmatchedSaved, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(result.unmatchedCurrent, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(WindowMatcher::match({}, current).unmatchedCurrent, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(WindowMatcher::match({}, {}), MatchResult{});
}

// Arbitrary desks: few applications, few depths, and titles made so that beginnings of 7 to 11 characters
// are often shared.

struct Window {
    std::string bundleID;
    std::string title;
    std::int64_t zOrder = 0;
};

void showValue(const Window& window, std::ostream& out) {
    out << window.bundleID << "[" << window.title << "]@" << window.zOrder;
}

std::string joined(const std::vector<std::string>& pieces) {
    return fmt::format("{}", fmt::join(pieces, ""));
}

rc::Gen<std::string> arbitraryTitle() {
    const auto piece = rc::gen::element<std::string>("a", "a", "a", "A", "b", "é", "e\u0301", "É",
                                                     "👨‍👩‍👧", "\xff", "İ", "\r", "\n", "Σ");
    const auto pieces = rc::gen::mapcat(rc::gen::inRange<std::size_t>(0, 13), [piece](std::size_t length) {
        return rc::gen::container<std::vector<std::string>>(length, piece);
    });
    // Mostly one beginning, and ends that are seldom equal, so that many windows compete for near titles.
    const auto sharing =
        rc::gen::map(rc::gen::tuple(rc::gen::element<std::string>("abcdefghijk", "abcdefghijk", "ABCDEFGHIJK",
                                                                  "abcdééghijk"),
                                    rc::gen::inRange<std::size_t>(6, 12), rc::gen::inRange(0, 300)),
                     [](const auto& parts) {
                         const auto& [base, length, number] = parts;
                         const std::string beginning(Unicode::prefix(base, length));
                         return number < 100 ? beginning : fmt::format("{} {}", beginning, number);
                     });
    return rc::gen::weightedOneOf<std::string>({{1, rc::gen::map(pieces, joined)}, {4, sharing}});
}

rc::Gen<std::vector<Window>> arbitraryWindows() {
    return rc::gen::container<std::vector<Window>>(rc::gen::build<Window>(
        rc::gen::set(&Window::bundleID, rc::gen::element<std::string>("a", "a", "a", "b", "")),
        rc::gen::set(&Window::title, arbitraryTitle()),
        rc::gen::set(&Window::zOrder, rc::gen::inRange<std::int64_t>(-2, 8))));
}

Identities identities(const std::vector<Window>& windows) {
    Identities result;
    for (const auto& window : windows) {
        result.emplace_back(window.bundleID, window.title, window.zOrder);
    }
    return result;
}

RC_GTEST_PROP(WindowMatcherLaws, TheResultIsThatOfThePlainReading, ()) {
    const auto saved = *arbitraryWindows();
    const auto current = *arbitraryWindows();
    RC_ASSERT(WindowMatcher::match(identities(saved), identities(current)) ==
              PlainMatcher::match(identities(saved), identities(current)));
}

RC_GTEST_PROP(WindowMatcherLaws, EveryWindowOccursOnceAndOnlyWithinItsApplication, ()) {
    const auto saved = *arbitraryWindows();
    const auto current = *arbitraryWindows();
    const auto result = WindowMatcher::match(identities(saved), identities(current));
    std::vector<int> savedSeen(saved.size());
    std::vector<int> currentSeen(current.size());
    for (const auto& pair : result.pairs) {
        ++savedSeen.at(pair.saved);
        ++currentSeen.at(pair.current);
        RC_ASSERT(saved[pair.saved].bundleID == current[pair.current].bundleID);
    }
    for (const auto index : result.unmatchedSaved) {
        ++savedSeen.at(index);
    }
    for (const auto index : result.unmatchedCurrent) {
        ++currentSeen.at(index);
    }
    RC_ASSERT(savedSeen == std::vector<int>(saved.size(), 1));
    RC_ASSERT(currentSeen == std::vector<int>(current.size(), 1));
}

// Other identifiers hash otherwise and stand in another order among themselves.
RC_GTEST_PROP(WindowMatcherLaws, WhatApplicationsAreCalledDoesNotMatter, ()) {
    auto saved = *arbitraryWindows();
    auto current = *arbitraryWindows();
    const auto before = WindowMatcher::match(identities(saved), identities(current));
    const std::map<std::string, std::string> renamed{{"a", "org.zebra"}, {"b", ""}, {"", "ant"}};
    for (auto* windows : {&saved, &current}) {
        for (auto& window : *windows) {
            window.bundleID = renamed.at(window.bundleID);
        }
    }
    RC_ASSERT(WindowMatcher::match(identities(saved), identities(current)) == before);
}

} // namespace
} // namespace vantrel

#include "VantrelCore/windows/WindowMatcher.h"

#include "tests/VantrelCore/windows/PlainMatcher.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace vantrel {

// Found by rapidcheck when it prints a counterexample.
static void showValue(const MatchResult& result, std::ostream& out) {
    for (const auto& pair : result.pairs) {
        out << pair.saved << "-" << pair.current << " ";
    }
}

static void showValue(const WindowRecord& window, std::ostream& out) {
    out << window.bundleID << "[" << window.title << "]@" << window.zOrder;
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
        EXPECT_EQ(result.pairs, (Pairs{{0, isNear ? 1U : 0U}})) << saved << " / " << current;
    }
}

TEST(WindowMatcher, WindowsOfOneApplicationArePairedFrontToBack) {
    // Stacking order, not index, on both sides; equal depths keep their index order. Applications are told
    // apart exactly.
    const Identities saved{{"app", "a", 2}, {"app", "b", 1}, {"app", "c", 1}, {"App", "x", 0}};
    const Identities current{{"app", "x", 9}, {"app", "y", 4}, {"other", "a", 0}};
    EXPECT_EQ(WindowMatcher::match(saved, current), (MatchResult{{{1, 1}, {2, 0}}, {0, 3}, {2}}));
    EXPECT_EQ(WindowMatcher::match({{"app", "", 5}, {"app", "", 0}}, {{"app", "", 1}, {"app", "", 3}}).pairs,
              (Pairs{{0, 1}, {1, 0}}));
    EXPECT_EQ(WindowMatcher::match({}, current), (MatchResult{{}, {}, {0, 1, 2}}));
}

// Arbitrary desks: few applications, few depths, and titles made so that beginnings of 7 to 11 characters
// are often shared.

rc::Gen<std::string> arbitraryTitle() {
    const auto piece = rc::gen::element<std::string>("a", "a", "a", "A", "b", "é", "e\u0301", "É",
                                                     "👨‍👩‍👧", "\xff", "İ", "\r", "\n", "Σ");
    const auto pieces = rc::gen::mapcat(rc::gen::inRange<std::size_t>(0, 13), [piece](std::size_t length) {
        return rc::gen::container<std::vector<std::string>>(length, piece);
    });
    const auto joined =
        rc::gen::map(pieces, [](const auto& parts) { return fmt::format("{}", fmt::join(parts, "")); });
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
    return rc::gen::weightedOneOf<std::string>({{1, joined}, {4, sharing}});
}

std::vector<WindowRecord> arbitraryWindows() {
    return *rc::gen::container<std::vector<WindowRecord>>(rc::gen::build<WindowRecord>(
        rc::gen::set(&WindowRecord::bundleID, rc::gen::element<std::string>("a", "a", "a", "b", "")),
        rc::gen::set(&WindowRecord::title, arbitraryTitle()),
        rc::gen::set(&WindowRecord::zOrder, rc::gen::inRange<std::int64_t>(-2, 8))));
}

RC_GTEST_PROP(WindowMatcher, TheResultIsThatOfThePlainReading, ()) {
    const auto savedWindows = arbitraryWindows();
    const auto currentWindows = arbitraryWindows();
    const Identities saved(savedWindows.begin(), savedWindows.end());
    const Identities current(currentWindows.begin(), currentWindows.end());
    RC_ASSERT(WindowMatcher::match(saved, current) == PlainMatcher::match(saved, current));
}

} // namespace
} // namespace vantrel

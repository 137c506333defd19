// tests/fuzz compares the matcher with one that tries every pair of windows.
#include "VantrelCore/windows/WindowMatcher.h"

#include <gtest/gtest.h>

namespace vantrel {
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

} // namespace
} // namespace vantrel

#include "VantrelCore/displays/SnapshotStabilityGate.h"

#include <gtest/gtest.h>

namespace vantrel {

namespace {

// A layout whose single window stands at the letter's place.
Layout at(char letter) {
    Layout layout;
    layout.configID = "desk";
    layout.windows.emplace_back().frame.origin.x = letter;
    return layout;
}

// Feeds one observation per letter; gives the letter where the gate let it pass and '.' where not.
std::string passed(int required, const std::string& observations, char stored = 0) {
    SnapshotStabilityGate gate(required);
    const auto current = stored ? std::optional(at(stored)) : std::nullopt;
    std::string result;
    for (const char letter : observations) {
        const auto saved = gate.observe(at(letter), current);
        result += saved ? static_cast<char>(saved->windows[0].frame.origin.x) : '.';
    }
    return result;
}

TEST(SnapshotStabilityGate, PassesALayoutSeenOftenEnoughInARow) {
    struct Case {
        int required;
        std::string observations;
        char stored;
        std::string passed;
    };

    const std::vector<Case> cases = {
        {3, "AAA", 0, "..A"},
        {3, "ABBB", 0, "...B"},
        {3, "ABABAAA", 0, "......A"},
        // Once passed it must be confirmed anew, were it not stored by then.
        {3, "AAAAAA", 0, "..A..A"},
        {4, "AAAA", 0, "...A"},
        {2, "AA", 0, ".A"},
        {1, "AA", 0, ".A"},
        {-5, "AA", 0, ".A"},
        {2, "SSSS", 'S', "...."},
        // Seeing the stored layout starts the count again.
        {3, "AASAAA", 'S', ".....A"},
    };
    for (const auto& [required, observations, stored, expected] : cases) {
        EXPECT_EQ(passed(required, observations, stored), expected) << required << " " << observations;
    }
}

TEST(SnapshotStabilityGate, ReturnsTheNewestObservationAndTellsDesksAndNamesApart) {
    SnapshotStabilityGate gate(2);
    auto first = at('A');
    auto second = at('A');
    second.windows[0].title = "New title";
    EXPECT_FALSE(gate.observe(first, std::nullopt));
    EXPECT_EQ(gate.observe(second, std::nullopt), second);

    EXPECT_FALSE(gate.observe(first, std::nullopt));
    second.configID = "other desk";
    EXPECT_FALSE(gate.observe(second, std::nullopt));
    second.layoutName = "Work";
    EXPECT_FALSE(gate.observe(second, std::nullopt));
    EXPECT_TRUE(gate.observe(second, std::nullopt));
}

} // namespace

} // namespace vantrel

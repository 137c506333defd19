#include "VantrelCore/displays/SnapshotStabilityGate.h"

#include "tests/VantrelCore/DeskRecords.h"

#include <gtest/gtest.h>

namespace vantrel {

namespace {

// A layout whose single window stands at the letter's place.
Layout at(char letter) {
    return layoutOf({windowOf("app", {{static_cast<double>(letter), 0}, {}})});
}

// Feeds one observation per letter; gives the letter where the gate let it pass and '.' where not.
std::string passed(int required, const std::string& observations) {
    SnapshotStabilityGate gate(required);
    std::string result;
    for (const char letter : observations) {
        const auto saved = gate.observe(at(letter), at('S'));
        result += saved ? static_cast<char>(saved->windows[0].frame.origin.x) : '.';
    }
    return result;
}

TEST(SnapshotStabilityGate, PassesALayoutThatIsNotStoredAndSeenOftenEnoughInARow) {
    const struct {
        int required;
        std::string observations;
        std::string expected;
    } cases[] = {
        // Once passed it must be confirmed anew, were it not stored by then.
        {3, "ABABAAAAAA", "......A..A"},
        {4, "AAAA", "...A"},
        {2, "AA", ".A"},
        {1, "AA", ".A"},
        {-5, "AA", ".A"},
        {2, "SSSS", "...."},
        // Seeing the stored layout starts the count again.
        {3, "AASAAA", ".....A"},
    };
    for (const auto& [required, observations, expected] : cases) {
        EXPECT_EQ(passed(required, observations), expected) << required << " " << observations;
    }
}

TEST(SnapshotStabilityGate, ReturnsTheNewestObservationAndTellsDesksAndNamesApart) {
    SnapshotStabilityGate gate(2);
    const Layout first = at('A');
    Layout second = first;
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

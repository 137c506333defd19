#include "VantrelCore/scenes/PatternSuggestion.h"

#include "tests/VantrelCore/DeskRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::PatternSuggestion {

namespace {

using namespace std::chrono;
using testing::ElementsAre;

const LocalTime today{2025y / March / 22, 9, 0};

DailyLayoutObservation seen(const std::string& day, const std::string& configID = "desk",
                            const std::string& window = "mail|0,0,1x1") {
    return {configID, day, {window}};
}

} // namespace

TEST(PatternSuggestion, SignatureIsSortedOmitsGhostsAndRoundsHalvesAwayFromZero) {
    auto ghost = windowOf("ghost", {});
    ghost.isGhost = true;
    EXPECT_THAT(signature(layoutOf({windowOf("web", {{100, 50}, {800, 600}}), ghost,
                                    windowOf("mail", {{12, -12}, {36, 60}}),
                                    windowOf("chat", {{11.9, -11.9}, {24, 24}})})),
                ElementsAre("chat|0,0,1x1", "mail|1,-1,2x3", "web|4,2,33x25"));
}

TEST(PatternSuggestion, QualifiesAfterThreeDaysOnOneDesk) {
    std::vector log{seen("2025-03-01"), seen("2025-03-01", "desk", "web|0,0,1x1"),
                    seen("2025-03-02"), seen("2025-03-02", "other"),
                    seen("2025-03-02"), seen("2025-03-03", "other")};
    const auto signature = seen("").signature;
    EXPECT_FALSE(qualifies("desk", signature, log));
    log.push_back(seen("2025-03-03"));
    EXPECT_TRUE(qualifies("desk", signature, log));
    EXPECT_FALSE(qualifies("other", signature, log));
}

TEST(PatternSuggestion, ForgetsObservationsAfterTwentyOneDays) {
    EXPECT_THAT(recording(seen("2025-03-22"), {seen("2025-02-28"), seen("2025-03-01")}, today),
                ElementsAre(seen("2025-03-01"), seen("2025-03-22")));
    // Calendar days, whatever the clock does in between.
    const LocalTime leapDay{2024y / February / 29, 0, 0};
    EXPECT_THAT(recording(seen("2024-02-29"), {seen("2024-02-07"), seen("2024-02-08")}, leapDay),
                ElementsAre(seen("2024-02-08"), seen("2024-02-29")));
}

TEST(PatternSuggestion, RecordsAnArrangementOncePerDay) {
    const auto other = seen("2025-03-22", "desk", "web|0,0,1x1");
    EXPECT_THAT(recording(seen("2025-03-22"), {seen("2025-03-22"), other}, today),
                ElementsAre(other, seen("2025-03-22")));
}

TEST(PatternSuggestion, DropsTheOldestDayBeyondSixtyObservations) {
    std::vector<DailyLayoutObservation> log;
    for (int i = 0; i < 59; ++i) {
        log.push_back(seen(i == 30 ? "2025-03-10" : "2025-03-20", "desk", std::to_string(i)));
    }
    log = recording(seen("2025-03-21"), log, today);
    ASSERT_EQ(log.size(), 60U);
    auto expected = log;
    expected.erase(expected.begin() + 30);
    expected.push_back(seen("2025-03-22"));
    EXPECT_EQ(recording(seen("2025-03-22"), log, today), expected);
}

} // namespace vantrel::PatternSuggestion

#include "VantrelCore/scenes/PatternSuggestion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace vantrel::PatternSuggestion {

namespace {

using namespace std::chrono;
using testing::ElementsAre;
using testing::IsEmpty;

const LocalTime today{2025y / March / 22, 9, 0};

DailyLayoutObservation seen(const std::string& day, const std::string& configID = "desk",
                            const std::string& window = "mail|0,0,1x1") {
    return {configID, day, {window}};
}

std::vector<std::string> signatureOf(double x, double y, double width, double height) {
    Layout layout;
    auto& window = layout.windows.emplace_back();
    window.bundleID = "mail";
    window.frame = {{x, y}, {width, height}};
    return signature(layout);
}

} // namespace

TEST(PatternSuggestion, FramesAreRoundedToTheGridHalvesAwayFromZero) {
    EXPECT_THAT(signatureOf(100, 50, 800, 600), ElementsAre("mail|4,2,33x25"));
    EXPECT_THAT(signatureOf(12, -12, 36, 60), ElementsAre("mail|1,-1,2x3"));
    EXPECT_THAT(signatureOf(11.9, -11.9, 24, 24), ElementsAre("mail|0,0,1x1"));
}

TEST(PatternSuggestion, TheSignatureIsSortedAndKnowsNoGhosts) {
    Layout layout;
    for (const auto* bundleID : {"web", "ghost", "mail"}) {
        auto& window = layout.windows.emplace_back();
        window.bundleID = bundleID;
        window.isGhost = window.bundleID == "ghost";
    }
    EXPECT_THAT(signature(layout), ElementsAre("mail|0,0,0x0", "web|0,0,0x0"));
    EXPECT_THAT(signature(Layout{}), IsEmpty());
}

TEST(PatternSuggestion, ThreeDaysOfOneDeskQualify) {
    const std::vector<DailyLayoutObservation> log{
        seen("2025-03-01"), seen("2025-03-01", "desk", "web|0,0,1x1"),
        seen("2025-03-02"), seen("2025-03-02", "other"),
        seen("2025-03-02"), seen("2025-03-03", "other")};
    const auto signature = seen("").signature;
    EXPECT_FALSE(qualifies("desk", signature, log));
    auto longer = log;
    longer.push_back(seen("2025-03-03"));
    EXPECT_TRUE(qualifies("desk", signature, longer));
    EXPECT_FALSE(qualifies("other", signature, longer));
}

TEST(PatternSuggestion, ObservationsAreForgottenAfterTwentyOneDays) {
    EXPECT_THAT(recording(seen("2025-03-22"), {seen("2025-02-28"), seen("2025-03-01")}, today),
                ElementsAre(seen("2025-03-01"), seen("2025-03-22")));
    // Calendar days, whatever the clock does in between.
    const LocalTime leapDay{2024y / February / 29, 0, 0};
    EXPECT_THAT(recording(seen("2024-02-29"), {seen("2024-02-07"), seen("2024-02-08")}, leapDay),
                ElementsAre(seen("2024-02-08"), seen("2024-02-29")));
}

TEST(PatternSuggestion, ADeskThatStandsStillIsNotedOnceADay) {
    auto log = recording(seen("2025-03-22"), {}, today);
    log = recording(seen("2025-03-22", "desk", "web|0,0,1x1"), log, today);
    log = recording(seen("2025-03-22"), log, today);
    EXPECT_THAT(log, ElementsAre(seen("2025-03-22", "desk", "web|0,0,1x1"), seen("2025-03-22")));
}

TEST(PatternSuggestion, BeyondSixtyObservationsTheOldestDayGoesFirst) {
    std::vector<DailyLayoutObservation> log;
    for (int i = 0; i < 60; ++i) {
        log.push_back(seen(i == 30 ? "2025-03-10" : "2025-03-20", "desk", std::to_string(i)));
    }
    log = recording(seen("2025-03-22"), log, today);
    EXPECT_EQ(log.size(), maxLogEntries);
    EXPECT_EQ(std::ranges::count(log, "2025-03-10", &DailyLayoutObservation::day), 0);
    EXPECT_EQ(log.back(), seen("2025-03-22"));
}

RC_GTEST_PROP(PatternSuggestion, TheLogNeverOutgrowsItsCapAndKeepsTheNewest,
              (const std::vector<unsigned char>& steps)) {
    std::vector<DailyLayoutObservation> log;
    sys_days day{2025y / January / 1};
    for (const auto step : steps) {
        day += days{step % 2};
        const LocalTime now{day, 12, 0};
        const DailyLayoutObservation observation{"desk", dayString(now.day), {std::to_string(step)}};
        log = recording(observation, log, now);
        RC_ASSERT(log.size() <= maxLogEntries);
        RC_ASSERT(std::ranges::is_sorted(log, {}, &DailyLayoutObservation::day));
        RC_ASSERT(log.back() == observation);
    }
}

} // namespace vantrel::PatternSuggestion

#include "VantrelCore/model/Date.h"

#include <gtest/gtest.h>

namespace vantrel {

namespace {

using std::chrono::microseconds;
using std::chrono::seconds;

TEST(Date, IsWrittenInUtcWithWholeSeconds) {
    EXPECT_EQ(iso8601Text(Date(seconds(0))), "1970-01-01T00:00:00Z");
    EXPECT_EQ(iso8601Text(Date(seconds(1740816900) + microseconds(999999))), "2025-03-01T08:15:00Z");
    EXPECT_EQ(iso8601Text(Date(microseconds(-1))), "1969-12-31T23:59:59Z");
    EXPECT_EQ(iso8601Text(Date(seconds(1709164800))), "2024-02-29T00:00:00Z");
}

TEST(Date, ReadsWhatProgramsWrite) {
    for (const char* text :
         {"2025-03-01T08:15:00Z", "2025-03-01T08:15:00.25Z", "2025-03-01T10:15:00+02:00",
          "2025-03-01T10:15:00+0200", "2025-02-28T22:45:00-09:30", "2025-03-01T08:15:00+00:00"}) {
        EXPECT_EQ(dateFromIso8601(text), Date(seconds(1740816900))) << text;
    }
    EXPECT_EQ(dateFromIso8601("1969-12-31T23:59:59Z"), Date(seconds(-1)));
}

TEST(Date, RefusesWhatIsNoMoment) {
    for (const char* text :
         {"", "2025-03-01", "2025-03-01 08:15:00Z", "2025-03-01T08:15Z", "2025-03-01T08:15:00",
          "2025-03-01T08:15:00.Z", "2025-03-01T08:15:00z", "2025-03-01T08:15:00Z ", "2025-03-01T08:15:00+02",
          "2025-03-01T08:15:00+02:60", "2025-03-01T08:15:00+24:00", "2025-03-01T24:00:00Z",
          "2025-03-01T08:60:00Z", "2025-03-01T08:15:60Z", "2025-13-01T08:15:00Z", "2025-02-29T08:15:00Z",
          "2025-00-01T08:15:00Z", "25-03-01T08:15:00Z", "+025-03-01T08:15:00Z"}) {
        EXPECT_EQ(dateFromIso8601(text), std::nullopt) << text;
    }
}

TEST(Date, EveryDateThatCanBeReadCanBeWrittenAndReadAgain) {
    for (const char* text : {"0000-01-01T00:00:00Z", "9999-12-31T23:59:59Z"}) {
        EXPECT_EQ(iso8601Text(dateFromIso8601(text).value()), text);
    }
    // The offset leads to years of another width.
    EXPECT_EQ(dateFromIso8601("0000-01-01T00:00:00+00:01"), std::nullopt);
    EXPECT_EQ(dateFromIso8601("9999-12-31T23:59:59-00:01"), std::nullopt);
}

TEST(Date, CountsSecondsBothWays) {
    const Date start(seconds(1000));
    EXPECT_EQ(dateAfter(start, 0.25), Date(microseconds(1000250000)));
    EXPECT_EQ(dateAfter(start, -1001), Date(seconds(-1)));
    EXPECT_DOUBLE_EQ(secondsBetween(start, dateAfter(start, 45.5)), 45.5);
    EXPECT_DOUBLE_EQ(secondsBetween(dateAfter(start, 45.5), start), -45.5);
}

} // namespace

} // namespace vantrel

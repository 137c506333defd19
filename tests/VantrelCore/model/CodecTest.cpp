// Dates, geometry and the JSON of records that StoreFilesTest does not cover.
#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/AppSizeBehavior.h"
#include "VantrelCore/model/DailyLayoutObservation.h"
#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/model/RestoreLog.h"
#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/model/UsageStats.h"
#include "VantrelCore/model/WallpaperMemory.h"

#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <vector>

namespace vantrel {
namespace {

using nlohmann::json;
using std::chrono::microseconds;
using std::chrono::seconds;

TEST(Date, WritesUtcInWholeSeconds) {
    EXPECT_EQ(iso8601Text(Date(seconds(0))), "1970-01-01T00:00:00Z");
    EXPECT_EQ(iso8601Text(Date(seconds(1740816900) + microseconds(999999))), "2025-03-01T08:15:00Z");
    EXPECT_EQ(iso8601Text(Date(microseconds(-1))), "1969-12-31T23:59:59Z");
    EXPECT_EQ(iso8601Text(Date(seconds(1709164800))), "2024-02-29T00:00:00Z");
}

TEST(Date, ReadsOffsetsAndFractions) {
    for (const char* text :
         {"2025-03-01T08:15:00Z", "2025-03-01T08:15:00.25Z", "2025-03-01T10:15:00+02:00",
          "2025-03-01T10:15:00+0200", "2025-02-28T22:45:00-09:30", "2025-03-01T08:15:00+00:00"}) {
        EXPECT_EQ(dateFromIso8601(text), Date(seconds(1740816900))) << text;
    }
    EXPECT_EQ(dateFromIso8601("1969-12-31T23:59:59Z"), Date(seconds(-1)));
}

TEST(Date, RefusesMalformedText) {
    for (const char* text :
         {"", "2025-03-01", "2025-03-01 08:15:00Z", "2025-03-01T08:15Z", "2025-03-01T08:15:00",
          "2025-03-01T08:15:00.Z", "2025-03-01T08:15:00z", "2025-03-01T08:15:00Z ", "2025-03-01T08:15:00+02",
          "2025-03-01T08:15:00+02:60", "2025-03-01T08:15:00+24:00", "2025-03-01T24:00:00Z",
          "2025-03-01T08:60:00Z", "2025-03-01T08:15:60Z", "2025-13-01T08:15:00Z", "2025-02-29T08:15:00Z",
          "2025-00-01T08:15:00Z", "25-03-01T08:15:00Z", "+025-03-01T08:15:00Z"}) {
        EXPECT_EQ(dateFromIso8601(text), std::nullopt) << text;
    }
}

TEST(Date, RoundTripsEveryYearOfFourDigits) {
    for (const char* text : {"0000-01-01T00:00:00Z", "9999-12-31T23:59:59Z"}) {
        EXPECT_EQ(iso8601Text(dateFromIso8601(text).value()), text);
    }
    // Their offsets lead outside these years.
    EXPECT_EQ(dateFromIso8601("0000-01-01T00:00:00+00:01"), std::nullopt);
    EXPECT_EQ(dateFromIso8601("9999-12-31T23:59:59-00:01"), std::nullopt);
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Geometry, TruncatesCoordinatesAndClampsThemToTheRange) {
    const std::pair<double, std::int64_t> rows[] = {
        {0.999, 0},
        {-1.5, -1},
        {1e300, INT64_MAX},
        {0x1p63, INT64_MAX},
        {-0x1p63, INT64_MIN},
        {infinity, INT64_MAX},
        {-infinity, INT64_MIN},
        {notANumber, 0},
    };
    for (const auto& [value, whole] : rows) {
        EXPECT_EQ(wholePoints(value), whole) << value;
    }
}

TEST(Geometry, IntersectsOnlyWhereThereIsArea) {
    const Rect a{{0, 0}, {100, 100}};
    EXPECT_EQ(intersection(a, {{50, -50}, {100, 100}}), (Rect{{50, 0}, {50, 50}}));
    EXPECT_EQ(intersection(a, {{10, 10}, {20, 20}}), (Rect{{10, 10}, {20, 20}}));
    EXPECT_EQ(intersection(a, {{100, 0}, {50, 50}}), Rect{});
    EXPECT_EQ(intersection(a, {{-50, -50}, {20, 20}}), Rect{});
    EXPECT_EQ(intersection(a, {{notANumber, 0}, {20, 20}}), Rect{});
}

TEST(Geometry, ComparesEveryValueWithinTheTolerance) {
    const Rect frame{{10, 20}, {300, 400}};
    for (const Rect& other : {Rect{{14, 20}, {300, 400}}, Rect{{10, 16}, {300, 400}},
                              Rect{{10, 20}, {304, 400}}, Rect{{10, 20}, {300, 396}}}) {
        EXPECT_TRUE(approxEqual(frame, other, 4));
        EXPECT_FALSE(approxEqual(frame, other, 3.99));
    }
    EXPECT_FALSE(approxEqual(frame, {{notANumber, 20}, {300, 400}}, 4));
}

TEST(Geometry, ExcludesTheRightAndBottomEdges) {
    const Rect rect{{-10, -10}, {20, 20}};
    EXPECT_TRUE(rect.contains({-10, -10}));
    EXPECT_TRUE(rect.contains({9.99, 9.99}));
    EXPECT_FALSE(rect.contains({10, 0}));
    EXPECT_FALSE(rect.contains({0, 10}));
}

TEST(Geometry, EncodesARectangleAsTwoPairs) {
    EXPECT_EQ(json(Rect{{-1.5, 25}, {1440, 875}}).dump(), "[[-1.5,25.0],[1440.0,875.0]]");
    EXPECT_EQ(json(Size{3, 4}).dump(), "[3.0,4.0]");
    EXPECT_EQ(json::parse("[[1, 2], [3, 4.5]]").get<Rect>(), (Rect{{1, 2}, {3, 4.5}}));
    for (const char* text : {"[1, 2, 3, 4]", "[[1, 2]]", "[[1, 2], [3]]", "[[1, 2], [3, 4], [5, 6]]",
                             "[[1, 2], [3, \"4\"]]", "[[1, null], [3, 4]]", "{}", "[]"}) {
        EXPECT_ANY_THROW(static_cast<void>(json::parse(text).get<Rect>())) << text;
    }
}

json field(const std::string& value) {
    return json::parse(R"({"key": )" + value + "}");
}

template <typename T>
void expectRefusedField(const std::vector<const char*>& values) {
    for (const auto* value : values) {
        EXPECT_THROW(static_cast<void>(JsonCoding::optional<T>(field(value), "key")), JsonCoding::Error)
            << value;
    }
}

TEST(JsonCoding, ReadsEachTypeAndRefusesOthers) {
    EXPECT_EQ(JsonCoding::required<bool>(field("true"), "key"), true);
    expectRefusedField<bool>({"1", "\"true\"", "[]", "{}"});

    EXPECT_EQ(JsonCoding::required<std::string>(field("\"\""), "key"), "");
    expectRefusedField<std::string>({"1", "true", "[\"a\"]"});

    EXPECT_EQ(JsonCoding::required<double>(field("3"), "key"), 3.0);
    EXPECT_EQ(JsonCoding::required<double>(field("-0.1"), "key"), -0.1);
    expectRefusedField<double>({"\"3\"", "true", "[3]"});

    EXPECT_EQ(JsonCoding::required<std::int64_t>(field("3"), "key"), 3);
    EXPECT_EQ(JsonCoding::required<std::int64_t>(field("3.0"), "key"), 3);
    EXPECT_EQ(JsonCoding::required<std::int64_t>(field("-9223372036854775808"), "key"), INT64_MIN);
    EXPECT_EQ(JsonCoding::required<std::int64_t>(field("9223372036854775807"), "key"), INT64_MAX);
    expectRefusedField<std::int64_t>({"3.5", "9223372036854775808", "-1e300", "true", "\"3\""});

    EXPECT_EQ(JsonCoding::required<std::vector<double>>(field("[1, 2.5]"), "key"),
              (std::vector<double>{1, 2.5}));
    expectRefusedField<std::vector<double>>({"{}", "1", "[1, null]", "[1, \"2\"]"});

    expectRefusedField<Date>({"1740816900", "\"yesterday\""});
}

TEST(JsonCoding, TreatsMissingAndNullAsAbsent) {
    EXPECT_EQ(JsonCoding::optional<bool>(field("null"), "key"), std::nullopt);
    EXPECT_EQ(JsonCoding::optional<bool>(field("true"), "other"), std::nullopt);
    EXPECT_THROW(static_cast<void>(JsonCoding::required<bool>(field("null"), "key")), JsonCoding::Error);
    EXPECT_THROW(static_cast<void>(JsonCoding::required<bool>(field("true"), "other")), JsonCoding::Error);
    EXPECT_THROW(static_cast<void>(JsonCoding::optional<bool>(json::array(), "key")), JsonCoding::Error);
}

template <typename Record>
void expectKept(const char* text) {
    const auto document = json::parse(text);
    EXPECT_EQ(json(document.get<Record>()), document);
    for (const auto& [key, value] : document.items()) {
        auto incomplete = document;
        incomplete.erase(key);
        EXPECT_THROW(static_cast<void>(incomplete.get<Record>()), JsonCoding::Error) << text << key;
    }
}

// The record with each of the values for `key`.
template <typename Record>
void expectRefused(const char* key, const std::vector<const char*>& values) {
    for (const char* value : values) {
        json document = Record{};
        document[key] = json::parse(value);
        EXPECT_THROW(static_cast<void>(document.get<Record>()), JsonCoding::Error) << value;
    }
}

TEST(RecordCodec, RoundTripsRecordsKeptOutsideTheStores) {
    expectKept<WallpaperMemory>(R"({"baseline": {"D": "file:///a"}, "lastSet": {"E": "file:///b"}})");
    const auto item = json::parse(
        R"({"appName": "A", "bundleID": "a", "title": "t", "outcome": "retried", "move": {"pairedBy": "order",
            "from": [[1, 2], [3, 4]], "target": [[5, 6], [7, 8]], "achieved": [[5, 6], [7, 9]]}})");
    EXPECT_EQ(json(item.get<RestoreLog::Item>()), item);
    expectKept<DailyLayoutObservation>(R"({"configID": "c", "day": "2025-03-01", "signature": ["a", "b"]})");
    expectKept<AppSizeBehavior::Classification>(R"({"kind": "flexible"})");
    expectKept<AppSizeBehavior::Classification>(R"({"kind": "fixedSize", "width": 715, "height": 600.5})");
    expectKept<AppSizeBehavior::Classification>(R"({"kind": "minClamped", "width": 1, "height": 2})");
}

TEST(RecordCodec, RefusesUnknownAndIncompleteKinds) {
    expectRefused<AppRule>("action", {R"({"kind": "explode"})", R"({"kind": "forceDisplay", "uuid": "A"})"});
    expectRefused<RestoreLog::Item>("outcome", {R"("vanished")", "1"});
    expectRefused<SceneTrigger>("kind", {R"({"sunrise": {}})", R"({"schedule": null})", R"("schedule")",
                                         R"({"schedule": {"hour": 7.5, "minute": 0}})"});
    EXPECT_THROW(static_cast<void>(json{{"kind", "elastic"}}.get<AppSizeBehavior::Classification>()),
                 JsonCoding::Error);
}

TEST(RecordCodec, RefusesATriggerKindWithoutExactlyOneKey) {
    for (const auto* kind : {R"({})", R"({"calendarVideoEvent": {}, "focusMode": {"name": "Work"}})"}) {
        json trigger = SceneTrigger{};
        trigger["kind"] = json::parse(kind);
        try {
            static_cast<void>(trigger.get<SceneTrigger>());
            ADD_FAILURE() << kind << " decoded";
        } catch (const JsonCoding::Error& error) {
            EXPECT_STREQ(error.what(), "Invalid number of keys found, expected one.");
        }
    }
}

TEST(RecordCodec, DropsRepeatedDeskIDs) {
    json stats = UsageStats{};
    stats["deskIDs"] = {"b", "a", "b"};
    EXPECT_EQ(json(stats.get<UsageStats>()).at("deskIDs").dump(), R"(["a","b"])");
}

} // namespace
} // namespace vantrel

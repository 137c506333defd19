// What of the records' JSON the files of the stores do not show: records that are kept elsewhere, and values
// that do not decode. StoreFilesTest has the rest.
#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/AppSizeBehavior.h"
#include "VantrelCore/model/DailyLayoutObservation.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/model/RestoreLog.h"
#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/model/UsageStats.h"
#include "VantrelCore/model/WallpaperMemory.h"

#include <gtest/gtest.h>

namespace vantrel {

namespace {

using nlohmann::json;

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

} // namespace

TEST(RecordCodec, WhatIsKeptOutsideTheStoresComesBackWhole) {
    expectKept<WallpaperMemory>(R"({"baseline": {"D": "file:///a"}, "lastSet": {"E": "file:///b"}})");
    expectKept<DailyLayoutObservation>(R"({"configID": "c", "day": "2025-03-01", "signature": ["a", "b"]})");
    expectKept<AppSizeBehavior::Classification>(R"({"kind": "flexible"})");
    expectKept<AppSizeBehavior::Classification>(R"({"kind": "fixedSize", "width": 715, "height": 600.5})");
    expectKept<AppSizeBehavior::Classification>(R"({"kind": "minClamped", "width": 1, "height": 2})");
}

TEST(RecordCodec, KindsThatAreUnknownOrLackSomethingAreRefused) {
    expectRefused<AppRule>("action", {R"({"kind": "explode"})", R"({"kind": "forceDisplay", "uuid": "A"})"});
    expectRefused<RestoreLog::Item>("outcome", {R"("vanished")", "1"});
    expectRefused<SceneTrigger>("kind", {R"({"sunrise": {}})", R"({"schedule": null})", R"("schedule")",
                                         R"({"schedule": {"hour": 7.5, "minute": 0}})"});
    EXPECT_THROW(static_cast<void>(json{{"kind", "elastic"}}.get<AppSizeBehavior::Classification>()),
                 JsonCoding::Error);
}

TEST(RecordCodec, AKindOfTriggerWithNoneOrSeveralKeysSaysSo) {
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

TEST(RecordCodec, DeskIDsAreAListWithoutRepeats) {
    json stats = UsageStats{};
    stats["deskIDs"] = {"b", "a", "b"};
    EXPECT_EQ(json(stats.get<UsageStats>()).at("deskIDs").dump(), R"(["a","b"])");
}

} // namespace vantrel

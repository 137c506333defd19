// What goes into a file comes out again, whatever it is.
#include "VantrelCore/model/JsonCoding.h"
#include "tests/VantrelCore/model/ArbitraryRecords.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace vantrel {

namespace {

template <typename Record>
Record throughText(const Record& record) {
    return nlohmann::json::parse(nlohmann::json(record).dump(2)).get<Record>();
}

template <typename Record>
class RecordCodec : public testing::Test {};

using Records = testing::Types<Layout, AppRule, Scene, Stash, RestoreLog, RestoreReceipts, UsageStats,
                               SceneTrigger, WallpaperMemory, DailyLayoutObservation>;
TYPED_TEST_SUITE(RecordCodec, Records);

TYPED_TEST(RecordCodec, DecodingAnEncodedRecordGivesTheRecord) {
    EXPECT_TRUE(rc::check([](const TypeParam& record) { RC_ASSERT(throughText(record) == record); }));
}

// Every object in the tree under `json` gets a key that this version does not know.
void addUnknownKeys(nlohmann::json& json) {
    if (json.is_structured()) {
        for (auto& child : json) {
            addUnknownKeys(child);
        }
    }
    // A trigger's kind and the maps between texts have no room for further keys.
    if (json.is_object() && (json.contains("id") || json.contains("configID") || json.contains("entries"))) {
        json["addedLater"] = {{"deep", nullptr}};
    }
}

TYPED_TEST(RecordCodec, KeysOfALaterVersionAreIgnored) {
    EXPECT_TRUE(rc::check([](const TypeParam& record) {
        nlohmann::json json = record;
        addUnknownKeys(json);
        RC_ASSERT(json.get<TypeParam>() == record);
    }));
}

nlohmann::json encodedTrigger(SceneTrigger::Kind kind) {
    SceneTrigger trigger;
    trigger.kind = std::move(kind);
    return trigger;
}

} // namespace

TEST(SceneTriggerCodec, EachKindIsAnObjectWithOneKey) {
    const auto encodedKind = [](SceneTrigger::Kind kind) {
        return encodedTrigger(std::move(kind)).at("kind").dump();
    };
    EXPECT_EQ(encodedKind(SceneTrigger::Schedule{7, 30}), R"({"schedule":{"hour":7,"minute":30}})");
    EXPECT_EQ(encodedKind(SceneTrigger::FocusMode{"Work"}), R"({"focusMode":{"name":"Work"}})");
    EXPECT_EQ(encodedKind(SceneTrigger::CalendarVideoEvent{}), R"({"calendarVideoEvent":{}})");
}

TEST(SceneTriggerCodec, AKindWithNoneOrSeveralKeysSaysSo) {
    nlohmann::json trigger = encodedTrigger(SceneTrigger::Schedule{7, 30});
    for (const auto* kind : {R"({})", R"({"calendarVideoEvent":{},"focusMode":{"name":"Work"}})"}) {
        trigger["kind"] = nlohmann::json::parse(kind);
        try {
            static_cast<void>(trigger.get<SceneTrigger>());
            ADD_FAILURE() << kind << " decoded";
        } catch (const JsonCoding::Error& error) {
            EXPECT_STREQ(error.what(), "Invalid number of keys found, expected one.");
        }
    }
}

TEST(SceneTriggerCodec, WrongKindsDoNotDecode) {
    nlohmann::json trigger = encodedTrigger({});
    for (const auto* kind :
         {R"({"sunrise":{}})", R"({"schedule":{"hour":7}})", R"({"schedule":{"hour":7.5,"minute":0}})",
          R"({"schedule":null})", R"("schedule")", R"({"focusMode":{"name":3}})"}) {
        trigger["kind"] = nlohmann::json::parse(kind);
        EXPECT_THROW(static_cast<void>(trigger.get<SceneTrigger>()), JsonCoding::Error) << kind;
    }
}

TEST(RestoreLogCodec, AnOutcomeIsItsNameAndNothingElse) {
    nlohmann::json item = RestoreLog::Item{"", "", "", RestoreLog::Outcome::retried, {}};
    EXPECT_EQ(item.at("outcome"), "retried");
    for (const nlohmann::json& wrong : {nlohmann::json("vanished"), nlohmann::json(1), nlohmann::json()}) {
        item["outcome"] = wrong;
        EXPECT_THROW(static_cast<void>(item.get<RestoreLog::Item>()), JsonCoding::Error) << wrong;
    }
}

TEST(SceneCodec, AStoredFalseStaysFalseAndNullReadsAsAbsent) {
    Scene stored;
    stored.pinned = false;
    stored.opensMissingApps = false;
    nlohmann::json json = stored;
    EXPECT_EQ(json.at("pinned"), false);
    EXPECT_FALSE(json.contains("wallpaper"));
    json["opensMissingApps"] = nullptr;
    const auto scene = json.get<Scene>();
    EXPECT_EQ(scene.pinned, false);
    EXPECT_EQ(scene.opensMissingApps, std::nullopt);
}

TEST(UsageStatsCodec, DeskIDsAreAListWithoutRepeats) {
    UsageStats stats;
    stats.recordRestore(1, "b", Date{});
    stats.recordRestore(1, "a", Date{});
    nlohmann::json json = stats;
    EXPECT_EQ(json.at("deskIDs").dump(), R"(["a","b"])");
    json["deskIDs"] = {"b", "a", "b"};
    EXPECT_EQ(json.get<UsageStats>(), stats);
}

} // namespace vantrel

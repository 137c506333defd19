// Decisions around scenes: switching, settling, triggers, wallpaper.
#include "VantrelCore/scenes/MeetingLinks.h"
#include "VantrelCore/scenes/QuickSwitcherStrip.h"
#include "VantrelCore/scenes/SceneApplyCaption.h"
#include "VantrelCore/scenes/SceneCopy.h"
#include "VantrelCore/scenes/SceneDrift.h"
#include "VantrelCore/scenes/SceneIconography.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/scenes/SceneSettlement.h"
#include "VantrelCore/scenes/SceneSettlementCaption.h"
#include "VantrelCore/scenes/SceneSwitchPolicy.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/scenes/TriggerEvaluator.h"
#include "VantrelCore/scenes/TriggerSchedule.h"
#include "VantrelCore/scenes/WallpaperBaseline.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gmock/gmock.h>
#include <set>

namespace vantrel {
namespace {

using testing::ElementsAre;
using WallpaperBaseline::decide;

const Rect frame{{0, 0}, {800, 600}};

Scene scene(const std::string& name, const std::string& configID, int createdAt,
            const std::string& deskName = "") {
    Scene result;
    result.name = name;
    result.configID = configID;
    result.createdAt = Date{std::chrono::seconds{createdAt}};
    result.layout.name = deskName;
    return result;
}

TEST(SceneSwitchPolicy, HidesAppsThatNeitherTheSceneNorThisProgramUses) {
    EXPECT_THAT(SceneSwitchPolicy::bundleIDsToHide({"web", "own", "mail", "chat", "web"}, {"mail"}, "own"),
                ElementsAre("web", "chat", "web"));
}

TEST(SceneDrift, CountsSavedWindowsWithoutANearbyLiveOne) {
    const WindowRecord mail = windowOf("mail", frame);
    const WindowRecord moved = windowOf("mail", {{24, -24}, {776, 624}});
    const WindowRecord movedFarther = windowOf("mail", {{24.1, 0}, {800, 600}});
    const WindowRecord web = windowOf("web", frame);
    const std::tuple<const char*, std::vector<WindowRecord>, std::vector<WindowRecord>, std::size_t> cases[] =
        {
            {"within the tolerance", {mail}, {moved}, 0},
            {"beyond it", {mail}, {movedFarther}, 1},
            {"one for two, and another application's", {mail, mail}, {mail, web}, 1},
            {"none", {mail, mail}, {}, 2},
            {"enough for a drift", {mail, mail, web}, {}, 3},
        };
    for (const auto& [name, saved, live, movedCount] : cases) {
        EXPECT_EQ(SceneDrift::movedWindowCount(layoutOf(saved), layoutOf(live), 24), movedCount) << name;
        EXPECT_EQ(SceneDrift::hasDrifted(layoutOf(saved), layoutOf(live), 24), movedCount >= 3) << name;
    }
}

TEST(QuickSwitcherStrip, BeginsWithTheSceneBeforeTheLastAppliedAndFilters) {
    std::vector<Scene> scenes;
    for (const char* const name : {"Write", "Code", "Team Meeting", "Música"}) {
        scenes.push_back(scene(name, "desk", 0));
        scenes.back().id = name;
    }
    QuickSwitcherStrip strip(scenes, {"elsewhere", "Code", "Música", "Write"}, "Write");
    const auto names = [&] {
        std::vector<std::string> shown;
        for (const Scene* const each : strip.shown()) {
            shown.push_back(each->name);
        }
        return shown;
    };
    const auto selected = [&] { return strip.selectedScene() == nullptr ? "" : strip.selectedScene()->name; };
    EXPECT_THAT(names(), ElementsAre("Write", "Code", "Música", "Team Meeting"));
    EXPECT_EQ(selected(), "Code");
    strip.go(-2);
    EXPECT_EQ(selected(), "Team Meeting");
    strip.go(1);
    EXPECT_EQ(selected(), "Write");
    strip.type("3");
    EXPECT_EQ(selected(), "Música");
    strip.type("9");
    EXPECT_EQ(selected(), "Música");

    strip.type("M");
    EXPECT_THAT(names(), ElementsAre("Música", "Team Meeting"));
    EXPECT_EQ(selected(), "Música");
    strip.type("e");
    EXPECT_THAT(names(), ElementsAre("Team Meeting"));
    strip.erase();
    strip.type("Ú");
    EXPECT_EQ(selected(), "Música");
    strip.type(" x");
    EXPECT_EQ(strip.selected(), std::nullopt);
    strip.go(1);
    strip.goToLast();
    EXPECT_EQ(selected(), "");
    for (int times = 0; times < 5; ++times) {
        strip.erase();
    }
    EXPECT_EQ(names().size(), 4U);

    // Nothing was applied here yet, or what was applied is gone: the first is selected.
    EXPECT_EQ(QuickSwitcherStrip(scenes, {}, "gone").selected(), 0U);
    EXPECT_TRUE(QuickSwitcherStrip().isEmpty());
}

TEST(SceneRail, ListsADesksScenesInTheUsersOrder) {
    const std::vector all{scene("late", "d1", 3), scene("other", "d2", 1), scene("early", "d1", 1),
                          scene("twin", "d1", 3)};
    EXPECT_THAT(SceneRail::scenes("d1", all), ElementsAre(all[0], all[2], all[3]));
    EXPECT_EQ(SceneRail::otherDeskCount("d1", all), 1U);
}

TEST(SceneRail, GroupsOtherDesksByName) {
    const std::vector<Scene> all{scene("here", "d1", 1),        scene("b2", "d2", 2, "Old"),
                                 scene("b1", "d2", 1, "Older"), scene("c", "d3", 1, "Forgotten"),
                                 scene("e", "d5", 1),           scene("a", "d4", 1)};
    const auto groups = SceneRail::otherDeskGroups("d1", all, [](const std::string& configID) {
        return configID == "d4"   ? std::optional<std::string>("attic")
               : configID == "d5" ? std::optional<std::string>("")
                                  : std::nullopt;
    });
    EXPECT_THAT(groups, ElementsAre(SceneDeskGroup{"d4", "attic", {all[5]}},
                                    SceneDeskGroup{"d3", "Forgotten", {all[3]}},
                                    SceneDeskGroup{"d2", "Old", {all[1], all[2]}},
                                    SceneDeskGroup{"d5", "Unknown desk", {all[4]}}));
    EXPECT_EQ(SceneRail::otherDesksLabel(1), "1 scene on another desk");
    EXPECT_EQ(SceneRail::otherDesksLabel(11), "11 scenes on other desks");
}

TEST(SceneCopy, TakesTheFirstFreeNameThatIsShortEnough) {
    const std::set<std::string> taken{"Write copy", "Write copy 2", "A scene with a very long copy"};
    const auto copyOf = [&](const char* name) {
        return SceneCopy::name(name, [&](const std::string& each) { return taken.contains(each); });
    };
    EXPECT_EQ(copyOf("Code"), "Code copy");
    EXPECT_EQ(copyOf("Write"), "Write copy 3");
    EXPECT_EQ(copyOf("Write copy 2"), "Write copy 3");
    EXPECT_EQ(copyOf("Level 42"), "Level 42 copy");
    EXPECT_EQ(copyOf(" copy"), "copy copy");
    EXPECT_EQ(copyOf("A scene with a very long name!"), "A scene with a very lon copy 2");
}

TEST(SceneApplyCaption, LeadsWithWhatHappened) {
    using SceneApplyCaption::detail;
    EXPECT_EQ(detail(2, 1, 5), "moved 2, opened 1");
    EXPECT_EQ(detail(0, 1, 5), "opened 1 app");
    EXPECT_EQ(detail(0, 2, 0), "opened 2 apps");
    EXPECT_EQ(detail(2, 0, 1), "moved 2 · 1 app not open");
    EXPECT_EQ(detail(0, 0, 3), "3 apps not open");
    EXPECT_EQ(detail(1, 0, 0), "1 window");
    EXPECT_EQ(detail(0, 0, 0), "0 windows");
}

TEST(SceneIconography, MatchesKeywordsAnywhereInOrder) {
    EXPECT_EQ(SceneIconography::symbol("CODE review"), "chevron.left.forwardslash.chevron.right");
    EXPECT_EQ(SceneIconography::symbol("Ghostwriter"), "pencil");
    EXPECT_EQ(SceneIconography::symbol("Home office"), "briefcase");
    EXPECT_EQ(SceneIconography::symbol("Homework"), "house");
    EXPECT_EQ(SceneIconography::symbol("Übersicht"), "rectangle.3.group");
}

const Date deadline{std::chrono::seconds{1000}};

SceneSettlement settlementOf(const std::vector<SceneSettlement::LaunchedApp>& launched) {
    return SceneSettlement::make("S", "Work", 3, launched, deadline);
}

TEST(SceneSettlement, AwaitsAnAppLaunchedTwiceOnceAndCountsItTwice) {
    const auto settlement = settlementOf({{"mail", "Mail"}, {"mail", "E-Mail"}});
    EXPECT_THAT(settlement.pendingBundleIDs(), ElementsAre("mail"));
    EXPECT_EQ(settlement.summary(), (SettlementSummary{2, 0, {"E-Mail"}}));
}

TEST(SceneSettlement, IsCompleteWhenEveryAwaitedAppIsPlaced) {
    EXPECT_TRUE(settlementOf({}).isComplete());
    auto settlement = settlementOf({{"mail", "Mail"}, {"notes", "Notes"}});
    EXPECT_TRUE(settlement.markPlaced("notes"));
    EXPECT_FALSE(settlement.markPlaced("notes"));
    EXPECT_FALSE(settlement.markPlaced("never"));
    EXPECT_FALSE(settlement.isComplete());
    EXPECT_TRUE(settlement.markPlaced("mail"));
    EXPECT_TRUE(settlement.isComplete());
    EXPECT_THAT(settlement.placed, ElementsAre("notes", "mail"));
}

TEST(SceneSettlement, RefreshAwaitsUnplacedAppsAndMovesTheDeadline) {
    auto settlement = settlementOf({{"mail", "Mail"}, {"notes", "Notes"}});
    EXPECT_FALSE(settlement.isExpired(deadline - std::chrono::microseconds{1}));
    EXPECT_TRUE(settlement.isExpired(deadline));
    settlement.markPlaced("mail");
    settlement.refresh({{"mail", "Mail"}, {"notes", "Notizen"}, {"chat", "Chat"}},
                       deadline + std::chrono::seconds{20});
    EXPECT_FALSE(settlement.isExpired(deadline));
    EXPECT_EQ(settlement.summary(), (SettlementSummary{2, 1, {"Chat", "Notizen"}}));
    settlement.markPlaced("notes");
    settlement.markPlaced("chat");
    // Two were opened at first, three placed in the end.
    EXPECT_EQ(settlement.summary(), (SettlementSummary{3, 3, {}}));
}

TEST(SceneSettlement, SortsStragglersByName) {
    EXPECT_THAT(settlementOf({{"1", "b"}, {"2", "a"}, {"3", "Z"}, {"4", "a"}}).stragglerNames(),
                ElementsAre("Z", "a", "a", "b"));
}

TEST(SceneSettlementCaption, NamesTheFirstStragglersAndCountsTheRest) {
    using SceneSettlementCaption::detail;
    EXPECT_EQ(detail(2, 2, {}), "opened 2, placed 2");
    EXPECT_EQ(detail(2, 1, {"Mail"}), "opened 2, placed 1 · Mail did not finish opening");
    EXPECT_EQ(detail(3, 1, {"Mail", "Notes"}), "opened 3, placed 1 · Mail and Notes did not finish opening");
    EXPECT_EQ(detail(5, 1, {"Mail", "Notes", "Chat", "Web"}),
              "opened 5, placed 1 · Mail and 3 more did not finish opening");
}

Date at(const char* text) {
    return dateFromIso8601(text).value();
}

const TimeZone& berlin() {
    static const TimeZone zone = TimeZone::posix("CET-1CEST,M3.5.0,M10.5.0/3").value();
    return zone;
}

TEST(TimeZone, ConvertsToLocalDayAndTime) {
    using namespace std::chrono;
    const auto kolkata = TimeZone::posix("IST-5:30").value();
    EXPECT_EQ(kolkata.localTime(at("2025-12-31T18:31:59Z")), (LocalTime{2026y / January / 1, 0, 1}));
    EXPECT_EQ(TimeZone::utc().localTime(Date{microseconds{-1}}), (LocalTime{1969y / December / 31, 23, 59}));
}

TEST(TriggerEvaluator, AScheduleFiresOnceADayInItsMinuteAcrossDaylightSaving) {
    const std::tuple<const char*, std::int64_t, const char*, const char*, bool> cases[] = {
        {"begin of the minute in summer", 7, "2025-06-02T05:30:00Z", nullptr, true},
        {"begin of the minute in winter", 7, "2025-01-10T06:30:00Z", nullptr, true},
        {"later in the minute", 7, "2025-06-02T05:30:59Z", "2025-06-02T05:30:10Z", false},
        {"on the next day", 7, "2025-06-03T05:30:10Z", "2025-06-02T05:30:10Z", true},
        {"a second too early", 7, "2025-06-02T05:29:59Z", nullptr, false},
        {"a minute late", 7, "2025-06-02T05:31:00Z", nullptr, false},
        {"an hour late", 7, "2025-06-02T06:30:00Z", nullptr, false},
        {"2:30 comes twice in October", 2, "2025-10-26T00:30:00Z", nullptr, true},
        {"and fires once", 2, "2025-10-26T01:30:00Z", "2025-10-26T00:30:20Z", false},
        {"2:30 does not come in March", 2, "2025-03-30T01:30:00Z", nullptr, false},
    };
    for (const auto& [name, hour, now, lastFired, fires] : cases) {
        const auto last = lastFired ? std::optional(at(lastFired)) : std::nullopt;
        EXPECT_EQ(TriggerEvaluator::shouldFireSchedule(hour, 30, at(now), last, berlin()), fires) << name;
    }
}

TEST(TriggerSchedule, TheNextFiringIsTheNextMinuteThatFires) {
    struct Case {
        const char* name;
        std::int64_t hour;
        const char* now;
        const char* lastFired;
        const char* next;
    };
    const Case cases[] = {
        {"later today", 7, "2025-06-02T04:00:00Z", nullptr, "2025-06-02T05:30:00Z"},
        {"now", 7, "2025-06-02T05:30:40Z", nullptr, "2025-06-02T05:30:00Z"},
        {"fired just now", 7, "2025-06-02T05:30:40Z", "2025-06-02T05:30:10Z", "2025-06-03T05:30:00Z"},
        {"tomorrow", 7, "2025-06-02T05:31:00Z", nullptr, "2025-06-03T05:30:00Z"},
        {"over a change of the clocks", 7, "2025-10-25T12:00:00Z", nullptr, "2025-10-26T06:30:00Z"},
        {"skipped in spring", 2, "2025-03-29T12:00:00Z", nullptr, "2025-03-31T00:30:00Z"},
        {"the second time in autumn", 2, "2025-10-26T00:45:00Z", nullptr, "2025-10-26T01:30:00Z"},
        {"not twice in autumn", 2, "2025-10-26T00:45:00Z", "2025-10-26T00:30:00Z", "2025-10-27T01:30:00Z"},
    };
    for (const auto& [name, hour, now, lastFired, next] : cases) {
        SceneTrigger trigger;
        trigger.kind = SceneTrigger::Schedule{hour, 30};
        trigger.lastFiredAt = lastFired ? std::optional(at(lastFired)) : std::nullopt;
        EXPECT_EQ(TriggerSchedule::nextFiring(trigger, at(now), berlin()), at(next)) << name;
        trigger.enabled = false;
        EXPECT_EQ(TriggerSchedule::nextFiring(trigger, at(now), berlin()), std::nullopt);
    }
}

TEST(TriggerEvaluator, ACalendarEventFiresWithinItsWindowAfterTheCooldown) {
    const Date now = at("2025-06-02T08:00:00Z");
    const std::tuple<double, std::optional<double>, bool> cases[] = {
        {60, {}, true},   {61, {}, false}, {0, {}, true},      {-1, {}, false},
        {30, 240, false}, {30, 300, true}, {30, 299.9, false}, {61, 300, false},
    };
    for (const auto& [lead, sinceFiring, fires] : cases) {
        const auto last = sinceFiring ? std::optional(dateAfter(now, -*sinceFiring)) : std::nullopt;
        EXPECT_EQ(TriggerEvaluator::shouldFireCalendarEvent(dateAfter(now, lead), now, last, 60, 300), fires)
            << lead << ", fired " << sinceFiring.value_or(-1) << " s ago";
    }
}

TEST(MeetingLinks, FindsALinkInAnyFieldIgnoringCase) {
    using MeetingLinks::hasVideoLink;
    for (const char* link :
         {"https://company.zoom.us/j/123", "https://meet.google.com/abc-defg-hij",
          "HTTPS://TEAMS.MICROSOFT.COM/l/meetup-join/1", "Join: https://company.webex.com/meet/ada",
          "https://facetime.apple.com/join#v=1"}) {
        EXPECT_TRUE(hasVideoLink({link, {}, {}}) && hasVideoLink({"Room 3", link, {}}) &&
                    hasVideoLink({{}, {}, link}))
            << link;
    }
    EXPECT_FALSE(hasVideoLink({"Zoom room 3", "agenda at https://docs.google.com/x", "https://example.org"}));
    EXPECT_FALSE(hasVideoLink({}));
}

TEST(SceneTriggerFormatting, FormatsAndParsesTheTwelveHourClock) {
    EXPECT_EQ(SceneTriggerFormatting::timeString(0, 5), "12:05 AM");
    EXPECT_EQ(SceneTriggerFormatting::timeString(11, 59), "11:59 AM");
    EXPECT_EQ(SceneTriggerFormatting::timeString(12, 0), "12:00 PM");
    EXPECT_EQ(SceneTriggerFormatting::timeString(13, 30), "1:30 PM");

    using SceneTriggerFormatting::scheduleOf;
    EXPECT_EQ(scheduleOf(" 7:05 "), (ScheduleTrigger{7, 5}));
    EXPECT_EQ(scheduleOf("19:30"), (ScheduleTrigger{19, 30}));
    EXPECT_EQ(scheduleOf("12:00 am"), (ScheduleTrigger{0, 0}));
    EXPECT_EQ(scheduleOf("12:30PM"), (ScheduleTrigger{12, 30}));
    for (const char* wrong :
         {"", "7", "7:5", "24:00", "7:60", "-7:30", "7:-5", "13:00 pm", "0:10 am", "7:30x"}) {
        EXPECT_FALSE(scheduleOf(wrong)) << wrong;
    }
}

constexpr auto none = std::nullopt;

TEST(WallpaperBaseline, RestoresTheUsersPictureAfterAnyNumberOfScenes) {
    auto first = decide("a", "user", "D", {});
    EXPECT_EQ(first.action, WallpaperAction::Any(WallpaperAction::Set{"a"}));
    EXPECT_EQ(first.memory.baseline.at("D"), "user");
    first.memory.lastSet["D"] = "a";

    auto second = decide("b", "a", "D", first.memory);
    EXPECT_EQ(second.action, WallpaperAction::Any(WallpaperAction::Set{"b"}));
    EXPECT_EQ(second.memory, first.memory);
    second.memory.lastSet["D"] = "b";

    const auto last = decide(none, "b", "D", second.memory);
    EXPECT_EQ(last.action, WallpaperAction::Any(WallpaperAction::Restore{"user"}));
    EXPECT_EQ(last.memory, WallpaperMemory{});
}

TEST(WallpaperBaseline, NeverOverwritesAPictureChosenMeanwhile) {
    const WallpaperMemory memory{{{"D", "user"}, {"E", "other"}}, {{"D", "a"}, {"E", "a"}}};
    for (const auto& current : {std::optional<std::string>("chosen"), std::optional<std::string>()}) {
        EXPECT_EQ(decide(none, current, "D", memory),
                  (WallpaperBaseline::Decision{WallpaperAction::None{}, memory}));
    }
    // The next scene with a wallpaper notes the new choice instead.
    EXPECT_EQ(decide("b", "chosen", "D", memory).memory.baseline.at("D"), "chosen");
    EXPECT_EQ(decide("b", "chosen", "D", memory).memory.baseline.at("E"), "other");
}

} // namespace
} // namespace vantrel

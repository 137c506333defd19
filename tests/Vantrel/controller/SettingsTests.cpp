#include "tests/Vantrel/controller/LearnedDesk.h"

#include <limits>

namespace vantrel::simulated {
namespace {

struct StoredSettings : testing::Test {
    SimulatedTime time;
    SimulatedDefaults defaults{time};
    Settings settings{defaults};
};

TEST_F(StoredSettings, TreatAValueOfTheWrongTypeOrOutOfRangeAsAbsent) {
    const DefaultsValue values[] = {std::string("no"), std::int64_t{-1}, 1e9,
                                    std::numeric_limits<double>::quiet_NaN(), true};
    for (const SettingKey& key : SettingKeys::all()) {
        for (const DefaultsValue& value : values) {
            defaults.set(key.name, value);
            const bool isRightType = value.index() == 0 ? key.type == SettingKey::Type::boolean
                                     : value.index() == 3
                                         ? key.type == SettingKey::Type::text
                                         : key.type == SettingKey::Type::number && !key.range;
            EXPECT_EQ(key.stored(defaults).has_value(), isRightType) << key.name << " " << value.index();
        }
    }
    EXPECT_EQ(settings.settleDelay(), 0.5);
    EXPECT_EQ(settings.restoreHotkey(), (HotKeyCombo{15, 768}));
    defaults.set("settleDelay", std::int64_t{2});
    EXPECT_EQ(settings.settleDelay(), 2);
}

TEST_F(StoredSettings, TreatUndecodableNotesAsEmptyUntilTheNextSave) {
    defaults.set("patternObservations", DefaultsData{"[{]"});
    defaults.set("wallpaperMemory", DefaultsData{"7"});
    defaults.set("patternSuggestionSnoozedUntil", std::numeric_limits<double>::infinity());
    EXPECT_TRUE(settings.loadPatternObservations().empty());
    EXPECT_EQ(settings.wallpaperMemory(), WallpaperMemory{});
    EXPECT_FALSE(settings.patternSuggestionSnoozedUntil());

    const std::vector<DailyLayoutObservation> observations{{"desk", "2026-03-02", {"a|1,2,3x4"}}};
    EXPECT_TRUE(settings.savePatternObservations(observations));
    EXPECT_EQ(settings.loadPatternObservations(), observations);
    EXPECT_TRUE(settings.setPatternSuggestionSnoozedUntil(time.now()));
    EXPECT_EQ(settings.patternSuggestionSnoozedUntil(), time.now());
}

TEST_F(StoredSettings, ReadWhatAPersonTypesByTheirTypeOrSayWhatTheyTake) {
    const SettingKey& delay = *SettingKeys::named("settleDelay");
    EXPECT_EQ(delay.read("1.5"), DefaultsValue(1.5));
    for (const char* wrong : {"", "60.5", "1.5s", "nan", "true"}) {
        EXPECT_FALSE(delay.read(wrong)) << wrong;
    }
    EXPECT_EQ(delay.read("soon").error(),
              "\"soon\" is not a valid value for settleDelay, which takes a number from 0 to 60.");
    EXPECT_EQ(SettingKeys::named("autoRestore")->read("yes").error(),
              "\"yes\" is not a valid value for autoRestore, which takes true or false.");
    EXPECT_EQ(SettingKeys::named("restoreKeyCode")->read("15"), DefaultsValue(std::int64_t{15}));
    EXPECT_EQ(SettingKeys::named("settledelay"), nullptr);
}

struct ChangingSettings : LearnedDesk {
    ChangingSettings() : LearnedDesk("laptop-and-monitor") {}
};

TEST_F(ChangingSettings, ReinstallTheWatcherOnceAndOnlyForAnotherSettleDelay) {
    story.defaults.set("restoreSizes", false);
    story.defaults.set("settleDelay", 0.5);
    story.runFor(1);
    EXPECT_EQ(story.logged("settleDelay changed to "), 0U);
    story.defaults.set("settleDelay", 2.0);
    story.defaults.set("autoRestore", true);
    story.runFor(1);
    EXPECT_EQ(story.logged("settleDelay changed to 2.0: reinstalling watcher"), 1U);
    EXPECT_EQ(story.logged("settleDelay changed to "), 1U);

    story.desk.change(DeskSetup::named("laptop"), {.events = 1});
    story.runFor(1.9);
    EXPECT_EQ(story.logged("display settled: "), 0U);
    story.runFor(0.2);
    EXPECT_EQ(story.logged("display settled: "), 1U);
}

TEST_F(ChangingSettings, DisablingSurvivesARestartAndFollowsOtherPrograms) {
    story.controller->setEnabled(false);
    story.start();
    EXPECT_FALSE(story.published().enabled);
    EXPECT_TRUE(story.published().phase.is<Phase::Off>());
    story.defaults.set("enabled", true);
    story.defaults.set("hideOthersOnSceneSwitch", true);
    story.runFor(0.1);
    EXPECT_TRUE(story.published().enabled && story.published().hideOthersOnSceneSwitch);
    EXPECT_TRUE(story.published().phase.is<Phase::Saved>());

    story.defaults.failWrites();
    story.controller->setEnabled(false);
    story.runFor(0.1);
    EXPECT_FALSE(story.published().enabled);
    EXPECT_EQ(story.logged("settings: enabled could not be written"), 1U);
}

struct Sleeping : ChangingSettings {};

TEST_F(Sleeping, SuspendsLearningUntilTheMachineIsAwakeAndUnlocked) {
    // The machine falls asleep some time after it is locked, and the displays change meanwhile.
    story.system.setLocked(true);
    const auto captures = story.desk.captures().size();
    story.connect("laptop");
    story.runFor(100);
    story.system.setAsleep(true);
    story.runFor(5);
    story.system.setAsleep(false);
    story.runFor(20);
    EXPECT_EQ(story.desk.captures().size(), captures) << "awake, but still locked";
    story.system.setLocked(false);
    story.runFor(2.4);
    EXPECT_TRUE(story.controller->snapshotsSuspended());
    story.runFor(0.2);
    EXPECT_FALSE(story.controller->snapshotsSuspended());
    for (const char* message :
         {"session locked: snapshots suspended", "session unlocked: checking pinned layout after settle",
          "willSleep: snapshots suspended", "didWake: checking pinned layout after settle"}) {
        EXPECT_EQ(story.logged(message), 1U) << message;
    }
}

TEST_F(Sleeping, DiscardsACaptureUnderWayWhenTheSessionIsLocked) {
    story.desk.onCapture = [this] { story.time.schedule(0.0001, [this] { story.system.setLocked(true); }); };
    const Rect moved{{10, 40}, {400, 300}};
    story.move(story.mail, moved);
    story.runFor(16);
    story.desk.onCapture = {};
    ASSERT_TRUE(story.system.isAway());
    story.connect("laptop");
    for (const Layout& layout : story.store().allLayouts()) {
        EXPECT_EQ(std::ranges::find(layout.windows, moved, &WindowRecord::frame), layout.windows.end());
    }
}

TEST_F(Sleeping, NoticesAMissedWakeNotification) {
    story.system.setAsleep(true);
    story.runFor(119);
    EXPECT_TRUE(story.controller->snapshotsSuspended());
    story.runFor(5);
    EXPECT_FALSE(story.controller->snapshotsSuspended());
}

} // namespace
} // namespace vantrel::simulated

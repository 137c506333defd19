#include "Vantrel/controller/DefaultsWithNotes.h"
#include "tests/Vantrel/controller/LearnedDesk.h"
#include "tests/simulated/MemoryFileSystem.h"

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

struct Notes : testing::Test {
    Notes() {
        defaults.set("restoreSizes", false);
        defaults.set("hasOnboarded", true);
        defaults.set("patternSuggestionSnoozedUntil", 1.5e9);
        defaults.set("updateChecker.lastCheck", time.now());
        Settings(defaults).savePatternObservations(observations);
        defaults.set("wallpaperMemory", DefaultsData{"not JSON"});
    }

    [[nodiscard]] DefaultsWithNotes open() { return {defaults, "/v", files, time}; }
    // Whether all notes can be read.
    [[nodiscard]] bool areThere() {
        auto opened = open();
        const Settings settings(opened);
        return settings.hasOnboarded() && settings.updateCheckerLastCheck() == time.now() &&
               settings.patternSuggestionSnoozedUntil() == dateAfter(Date{}, 1.5e9) &&
               settings.loadPatternObservations() == observations && !settings.restoreSizes() &&
               settings.wallpaperMemory() == WallpaperMemory{};
    }

    const std::vector<DailyLayoutObservation> observations{{"desk", "2026-03-02", {"a|1,2,3x4"}}};
    SimulatedTime time{0, dateFromIso8601("2026-03-02T09:30:00Z").value()};
    SimulatedDefaults defaults{time};
    MemoryFileSystem files;
};

TEST_F(Notes, MoveOnceToAFileOfTheirOwnAndStayThere) {
    EXPECT_TRUE(areThere());
    EXPECT_FALSE(defaults.boolean("hasOnboarded") || defaults.data("patternObservations"));
    EXPECT_EQ(defaults.boolean("restoreSizes"), false);
    const auto written = files.content("/v/notes.json");
    EXPECT_TRUE(areThere());
    EXPECT_EQ(files.content("/v/notes.json"), written);

    auto opened = open();
    time.runFor(0.1);
    int changes = 0;
    opened.setChangeHandler([&] { ++changes; });
    EXPECT_TRUE(opened.set("hasOnboarded", false) && opened.remove("wallpaperMemory"));
    time.runFor(0.1);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(opened.boolean("hasOnboarded"), false);
    EXPECT_FALSE(opened.data("wallpaperMemory") || defaults.boolean("hasOnboarded"));
    EXPECT_TRUE(opened.set("showHUD", false));
    EXPECT_EQ(defaults.boolean("showHUD"), false);

    files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_FALSE(opened.set("hasOnboarded", true));
    EXPECT_EQ(opened.boolean("hasOnboarded"), false);
}

TEST_F(Notes, SurviveAMoveThatIsInterrupted) {
    files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_TRUE(areThere()) << "the new file cannot be written";
    EXPECT_TRUE(defaults.data("patternObservations"));
    files.stopFailing();
    // As after a kill before the old ones were removed.
    defaults.failWrites();
    EXPECT_TRUE(areThere());
    EXPECT_TRUE(defaults.data("patternObservations"));
    {
        auto opened = open();
        EXPECT_TRUE(Settings(opened).savePatternObservations({}));
    }
    defaults.failWrites("nothing");
    auto opened = open();
    EXPECT_TRUE(Settings(opened).loadPatternObservations().empty()) << "the newer ones";
    EXPECT_FALSE(defaults.data("patternObservations"));
}

// Lines of a settings file, as the platform reads them.
SettingsFile
edited(const std::vector<std::tuple<std::string, std::string, std::optional<DefaultsValue>>>& lines) {
    SettingsFile file{.path = "/home/me/settings.conf", .lines = {}};
    for (const auto& [key, written, value] : lines) {
        file.lines.push_back({file.lines.size() + 1, key, written, value});
    }
    return file;
}

TEST(SettingMistakes, SayWhatIsWrongAndWhatWasProbablyMeant) {
    const auto mistakes = SettingMistakes::in(edited({
        {"setleDelay", "1", std::int64_t{1}},
        {"RestoreSize", "true", true},
        {"colour", "\"red\"", std::string("red")},
        {"settleDelay", "600", std::int64_t{600}},
        {"showHUD", "no", std::nullopt},
        {"saveKeyCode", "\"12\"", std::string("12")},
        {"calendarFolders", "~/calendars", std::nullopt},
        {"", "autoRestore: true", std::nullopt},
        {"enabled", "true", true},
        {"enabled", "false", false},
        {"dockFrequency", "\"daily\"", std::string("daily")},
    }));
    EXPECT_THAT(
        SettingMistakes::texts(mistakes),
        testing::ElementsAre(
            "Line 1 of settings.conf: There is no setting \"setleDelay\". Did you mean \"settleDelay\"?",
            "Line 2 of settings.conf: There is no setting \"RestoreSize\". Did you mean \"restoreSizes\"?",
            "Line 3 of settings.conf: There is no setting \"colour\".",
            "Line 4 of settings.conf: \"600\" is not a valid value for settleDelay, which takes a number "
            "from 0 "
            "to 60.",
            "Line 5 of settings.conf: \"no\" is not a valid value for showHUD, which takes true or false.",
            "Line 6 of settings.conf: \"12\" is not a valid value for saveKeyCode, which takes a whole "
            "number "
            "from 0 to 127. Write it without quotes.",
            "Line 7 of settings.conf: \"~/calendars\" is not a valid value for calendarFolders, which takes "
            "a "
            "string. Put it in double quotes.",
            "Line 8 of settings.conf: It is not of the form key = value.",
            "Line 9 of settings.conf: Line 10 sets enabled again and takes precedence.",
            "Line 11 of settings.conf: dockFrequency is vantrel's own note and belongs in notes.json. Remove "
            "this "
            "line; to change the note: vantrelctl settings set dockFrequency VALUE"));
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

TEST_F(ChangingSettings, AreLoggedOncePerMistakeAndPublishedWithTheirValues) {
    const auto wrong = std::tuple("showHud", "false", DefaultsValue(false));
    story.defaults.edit(edited({wrong}));
    story.runFor(0.1);
    story.defaults.edit(edited({{"restoreSizes", "false", false}, wrong}));
    story.runFor(0.1);
    EXPECT_EQ(story.logged("settings: Line 1 of settings.conf: There is no setting \"showHud\"."), 1U);
    EXPECT_EQ(story.logged("settings: Line "), 1U);
    EXPECT_EQ(story.published().settingMistakes.at(0).line, 2U);
    EXPECT_EQ(story.published().preferences.at("restoreSizes"), DefaultsValue(false));
    EXPECT_EQ(story.published().preferences.at("settleDelay"), DefaultsValue(0.5));
    story.defaults.edit(edited({{"restoreSizes", "false", false}}));
    story.runFor(0.1);
    EXPECT_TRUE(story.published().settingMistakes.empty());
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

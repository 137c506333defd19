#include "Vantrel/platform/macos/MacUserDefaults.h"
#include "Vantrel/platform/macos/MissionControlFixer.h"
#include "Vantrel/platform/macos/MissionControlReader.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/Preferences.h"
#include "tests/macos/fake/Processes.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>
#include <limits>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;

const std::string changeNotification = "NSUserDefaultsDidChangeNotification";

struct MacDefaults : PlatformTest {
    simulated::SimulatedTime time;
    std::unique_ptr<MacUserDefaults> adapter = std::make_unique<MacUserDefaults>(time);
    int changes = 0;

    void watch() {
        adapter->setChangeHandler([this] { ++changes; });
    }
    void TearDown() override {
        adapter.reset();
        EXPECT_EQ(notificationObservers(), 0U);
        PlatformTest::TearDown();
    }
};

TEST_F(MacDefaults, AValueOfAnotherTypeIsAbsent) {
    constexpr auto biggest = std::numeric_limits<std::int64_t>::max();
    using Seen = std::tuple<std::optional<bool>, std::optional<std::int64_t>, std::optional<double>,
                            std::optional<std::string>>;
    const auto seen = [&](const char* key) {
        return Seen(adapter->boolean(key), adapter->integer(key), adapter->number(key), adapter->text(key));
    };
    EXPECT_EQ(seen("never written"), Seen());
    const std::pair<Value, Seen> rows[] = {
        {boolean(true), {true, {}, {}, {}}},
        {boolean(false), {false, {}, {}, {}}},
        {number(1), {{}, 1, 1.0, {}}},
        {number(biggest), {{}, biggest, static_cast<double>(biggest), {}}},
        {realNumber(2), {{}, {}, 2.0, {}}},
        {text("1"), {{}, {}, {}, "1"}},
        {text(""), {{}, {}, {}, ""}},
        {array({}), {}},
        {dictionary({}), {}},
    };
    for (const auto& [stored, expected] : rows) {
        preferences().domains["own"]["key"] = stored;
        EXPECT_EQ(seen("key"), expected);
    }
}

TEST_F(MacDefaults, WrittenValuesAreReadBackAndSynchronised) {
    EXPECT_TRUE(adapter->set("flag", true));
    EXPECT_EQ(adapter->boolean("flag"), true);
    EXPECT_TRUE(adapter->remove("flag"));
    EXPECT_EQ(adapter->boolean("flag"), std::nullopt);
    EXPECT_THAT(preferences().calls,
                ElementsAre("set own flag", "synchronise own", "remove own flag", "synchronise own"));
    EXPECT_TRUE(adapter->set("whole", std::int64_t{-3}));
    EXPECT_TRUE(adapter->set("real", 0.25));
    EXPECT_TRUE(adapter->set("text", std::string("Écran")));
    EXPECT_EQ(adapter->integer("whole"), -3);
    EXPECT_EQ(adapter->number("real"), 0.25);
    EXPECT_EQ(adapter->text("text"), "Écran");
}

TEST_F(MacDefaults, DatesAndDataHaveTypesOfTheirOwn) {
    const Date date = dateFromIso8601("2026-03-02T09:30:00Z").value();
    EXPECT_TRUE(adapter->set("date", date));
    EXPECT_TRUE(adapter->set("data", DefaultsData{std::string("[1]\0\xff", 5)}));
    auto& stored = preferences().domains["own"];
    EXPECT_EQ(kindOf(stored["date"].get()), Kind::date);
    EXPECT_EQ(kindOf(stored["data"].get()), Kind::data);
    EXPECT_EQ(adapter->date("date"), date);
    EXPECT_EQ(adapter->data("data"), DefaultsData{std::string("[1]\0\xff", 5)});
    EXPECT_EQ(adapter->text("date"), std::nullopt);
    EXPECT_EQ(adapter->date("data"), std::nullopt);
    stored["text"] = text("2026-03-02T09:30:00Z");
    EXPECT_EQ(adapter->date("text"), std::nullopt);
    EXPECT_EQ(adapter->data("text"), std::nullopt);
    stored["far"] = fake::date(1e300);
    EXPECT_EQ(adapter->date("far"), std::nullopt);
}

TEST_F(MacDefaults, AValueThatCannotBeStoredIsReported) {
    EXPECT_FALSE(adapter->set("text", std::string("\xff")));
    EXPECT_FALSE(adapter->set("\xff", true));
    EXPECT_FALSE(adapter->remove("\xff"));
    EXPECT_EQ(adapter->boolean("\xff"), std::nullopt);
    EXPECT_TRUE(preferences().calls.empty());
    preferences().readOnly["own"] = true;
    EXPECT_FALSE(adapter->set("flag", true));
    EXPECT_FALSE(adapter->remove("flag"));
}

TEST_F(MacDefaults, ChangesAreReportedOncePerRoundUntilTheHandlerOrTheAdapterIsGone) {
    adapter->set("a", true);
    watch();
    watch();
    EXPECT_EQ(notificationObservers(), 1U);
    adapter->set("a", false);
    adapter->remove("a");
    postNotification(changeNotification);
    EXPECT_EQ(changes, 0) << "only on the main queue";
    time.runFor(1);
    EXPECT_EQ(changes, 1);
    postNotification(changeNotification);
    postNotification("another");
    time.runFor(1);
    EXPECT_EQ(changes, 2);

    adapter->set("a", true);
    adapter->setChangeHandler({});
    EXPECT_EQ(notificationObservers(), 0U);
    time.runFor(1);
    watch();
    adapter->set("a", false);
    adapter.reset();
    time.runFor(1);
    EXPECT_EQ(changes, 2);
}

struct MissionControlSettings : PlatformTest {
    static MissionControlConfig with(const Value& spans, const Value& mru) {
        preferences().domains["com.apple.spaces"]["spans-displays"] = spans;
        preferences().domains["com.apple.dock"]["mru-spaces"] = mru;
        return MissionControlReader::read();
    }
};

TEST_F(MissionControlSettings, AreReadFromTwoDomains) {
    using Config = MissionControlConfig;
    // An untouched Mac.
    EXPECT_EQ(MissionControlReader::read(), (Config{true, true}));
    EXPECT_EQ(with(boolean(false), boolean(true)), (Config{true, true}));
    EXPECT_EQ(with(boolean(true), boolean(false)), (Config{false, false}));
    EXPECT_EQ(with(number(0), number(1)), (Config{true, true}));
    EXPECT_EQ(with(text("0"), realNumber(0.5)), (Config{}));
}

TEST_F(MissionControlSettings, AreBothWrittenBeforeTheDockRestarts) {
    with(boolean(true), boolean(true));
    preferences().calls.clear();
    EXPECT_TRUE(MissionControlFixer::apply());
    EXPECT_THAT(preferences().calls,
                ElementsAre("set com.apple.spaces spans-displays", "synchronise com.apple.spaces",
                            "set com.apple.dock mru-spaces", "synchronise com.apple.dock"));
    EXPECT_THAT(processes().launches, ElementsAre("/usr/bin/killall Dock"));
    EXPECT_FALSE(hasUnreapedProcess());
    EXPECT_EQ(MissionControlReader::read(), (MissionControlConfig{true, false}));

    processes().launchError = 2;
    EXPECT_TRUE(MissionControlFixer::apply()) << "the Dock need not restart";
    preferences().readOnly["com.apple.dock"] = true;
    EXPECT_FALSE(MissionControlFixer::apply());
    preferences().readOnly = {{"com.apple.spaces", true}};
    preferences().calls.clear();
    EXPECT_FALSE(MissionControlFixer::apply());
    EXPECT_THAT(preferences().calls, testing::Contains("set com.apple.dock mru-spaces"));
}

} // namespace
} // namespace vantrel::fake

// The text of the settings file, and the file itself as people, editors and the program change it.
#include "Vantrel/platform/qt/QtUserDefaults.h"
#include "Vantrel/platform/qt/SettingsText.h"

#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"
#include "tests/Vantrel/platform/qt/QtApplication.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

using namespace vantrel;
using namespace ::testing;
using vantrel::testing::handlePending;
using vantrel::testing::waitFor;

namespace {

using Entries = std::map<std::string, DefaultsValue, std::less<>>;

class QtUserDefaultsTest : public Test {
protected:
    [[nodiscard]] std::filesystem::path file() const { return m_folder.path() / "vantrel" / "settings.conf"; }

    [[nodiscard]] QtUserDefaults open() {
        return QtUserDefaults(file(), m_files, m_incidents,
                              [this](const std::string& message) { m_log.push_back(message); });
    }

    TemporaryFolder m_folder;
    PosixFileSystem m_files;
    std::vector<std::string> m_log;
    FileIncidents m_incidents{[this](const std::string& message) { m_log.push_back(message); }};
};

} // namespace

TEST(SettingsText, ParsesCommentsSpacesAndTypes) {
    const auto content = SettingsText::parse("# mine\n"
                                             "autoRestore = false   # at home only\n"
                                             "\n"
                                             "  settleDelay=1.5\n"
                                             "dockFrequency = \"daily # not a comment\"  # a comment\n"
                                             "saveKeyCode = 12\n");
    EXPECT_EQ(content.values, (Entries{{"autoRestore", false},
                                       {"settleDelay", 1.5},
                                       {"dockFrequency", std::string("daily # not a comment")},
                                       {"saveKeyCode", std::int64_t{12}}}));
    EXPECT_TRUE(content.invalidLines().empty());
    // Lines of other systems, and none at the end.
    EXPECT_EQ(SettingsText::parse("a = 1\r\nb = true").values,
              (Entries{{"a", std::int64_t{1}}, {"b", true}}));
}

TEST(SettingsText, ReportsUnreadableLines) {
    const auto content = SettingsText::parse("autoRestore = yes\nrestoreSizes = true\nshowHUD\n= 5\n"
                                             "a = [1]\nb = \"open\nc = \xff\n");
    EXPECT_EQ(content.values, (Entries{{"restoreSizes", true}}));
    using Line = SettingsLine;
    EXPECT_THAT(content.invalidLines(),
                ElementsAre(Line{1, "autoRestore", "yes", {}}, Line{3, "", "showHUD", {}},
                            Line{4, "", "= 5", {}}, Line{5, "a", "[1]", {}}, Line{6, "b", "\"open", {}},
                            Line{7, "c", "\xff", {}}));
    EXPECT_EQ(content.lines.at(1), (Line{2, "restoreSizes", "true", true}));
    // Searching it again from every # on would take minutes.
    const std::string endless = "a = \"" + std::string(1'000'000, '#');
    EXPECT_EQ(SettingsText::parse(endless).invalidLines().size(), 1U);
}

TEST(SettingsText, ChangesOneValueAndKeepsEveryOtherLine) {
    const std::pair<std::string, std::string> rows[] = {
        {"# mine\n\nshowHUD=true   # at home only\n  a=1.5\n",
         "# mine\n\nshowHUD = false  # at home only\n  a=1.5\n"},
        {"what is this\nshowHUD = maybe", "what is this\nshowHUD = false\n"},
        {"what is this", "what is this\nshowHUD = false\n"},
    };
    for (const auto& [before, after] : rows) {
        EXPECT_EQ(SettingsText::withValue(before, "showHUD", false), after);
    }
    EXPECT_EQ(SettingsText::withoutKey("a = 1\n# a = 2\nb = 3\na = 4\n", "a"), "# a = 2\nb = 3\n");
}

RC_GTEST_PROP(SettingsText, RoundTripsValuesWithTheirTypes, (double number, std::int64_t whole, bool flag)) {
    const auto text = *rc::gen::container<std::string>(rc::gen::inRange('\x01', '\x7f'));
    const Entries values{{"text", text + "é"}, {"number", number}, {"whole", whole}, {"flag", flag}};
    auto file = SettingsText::heading();
    for (const auto& [key, value] : values) {
        file = SettingsText::withValue(file, key, value);
    }
    RC_ASSERT(SettingsText::parse(file).values == values);
}

TEST_F(QtUserDefaultsTest, CreatesTheFileWithTheFirstValue) {
    {
        auto defaults = open();
        EXPECT_EQ(defaults.boolean("autoRestore"), std::nullopt);
        EXPECT_TRUE(defaults.remove("autoRestore"));
        EXPECT_FALSE(std::filesystem::exists(file()));
        EXPECT_TRUE(defaults.set("settleDelay", 0.75));
        EXPECT_TRUE(defaults.set("gone", true));
        EXPECT_TRUE(defaults.remove("gone"));
    }
    EXPECT_EQ(textOf(file()), SettingsText::heading() + "settleDelay = 0.75\n");
    EXPECT_EQ(open().number("settleDelay"), 0.75);
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(QtUserDefaultsTest, StoresDatesAndDataAsText) {
    const Date date = dateFromIso8601("2026-03-02T09:30:00Z").value();
    auto defaults = open();
    EXPECT_TRUE(defaults.set("date", date));
    EXPECT_TRUE(defaults.set("data", DefaultsData{"[\"a\"]"}));
    EXPECT_EQ(textOf(file()),
              SettingsText::heading() + "date = \"2026-03-02T09:30:00Z\"\ndata = \"[\\\"a\\\"]\"\n");
    EXPECT_EQ(defaults.date("date"), date);
    EXPECT_EQ(defaults.data("data"), DefaultsData{"[\"a\"]"});
    EXPECT_EQ(defaults.date("data"), std::nullopt);
}

TEST_F(QtUserDefaultsTest, AValueOfAnotherTypeIsAbsent) {
    putText(file(), "flag = true\nnumber = 1.5\nwhole = 2\ntext = \"true\"\n");
    auto defaults = open();
    using Seen = std::tuple<std::optional<bool>, std::optional<std::int64_t>, std::optional<double>,
                            std::optional<std::string>>;
    const auto seen = [&](const char* key) {
        return Seen(defaults.boolean(key), defaults.integer(key), defaults.number(key), defaults.text(key));
    };
    EXPECT_EQ(seen("flag"), Seen(true, {}, {}, {}));
    EXPECT_EQ(seen("number"), Seen({}, {}, 1.5, {}));
    EXPECT_EQ(seen("whole"), Seen({}, 2, 2.0, {}));
    EXPECT_EQ(seen("text"), Seen({}, {}, {}, "true"));
}

TEST_F(QtUserDefaultsTest, NoticesEveryWayEditorsSave) {
    putText(file(), "settleDelay = 1\n");
    auto defaults = open();
    int changes = 0;
    defaults.setChangeHandler([&] { ++changes; });

    // In place, as nano does.
    putText(file(), "settleDelay = 2\n");
    EXPECT_TRUE(waitFor([&] { return defaults.number("settleDelay") == 2.0 && changes >= 1; }));
    // Another file put in its place, as vim and most others do; twice, since the watch has to move along.
    for (const double delay : {3.0, 4.0}) {
        const auto swap = file().parent_path() / "settings.conf~";
        putText(swap, "settleDelay = " + std::to_string(delay) + "\n");
        std::filesystem::rename(swap, file());
        EXPECT_TRUE(waitFor([&] { return defaults.number("settleDelay") == delay; })) << delay;
    }
    // Removed, and made anew.
    std::filesystem::remove(file());
    EXPECT_TRUE(waitFor([&] { return !defaults.number("settleDelay").has_value(); }));
    putText(file(), "settleDelay = 5\n");
    EXPECT_TRUE(waitFor([&] { return defaults.number("settleDelay") == 5.0 && changes >= 5; }));
}

TEST_F(QtUserDefaultsTest, ReportsItsOwnChangesOncePerRound) {
    auto defaults = open();
    int changes = 0;
    defaults.setChangeHandler([&] { ++changes; });
    defaults.set("a", true);
    defaults.set("b", true);
    EXPECT_EQ(changes, 0);
    handlePending();
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(defaults.set("b", true));
    handlePending();
    EXPECT_EQ(changes, 1);
}

TEST_F(QtUserDefaultsTest, RereadsTheFileBeforeWriting) {
    putText(file(), "a = 1\n");
    auto defaults = open();
    putText(file(), "# by hand\na = 2\n");
    EXPECT_TRUE(defaults.set("b", true));
    EXPECT_EQ(textOf(file()), "# by hand\na = 2\nb = true\n");
    EXPECT_EQ(defaults.integer("a"), 2);
}

TEST_F(QtUserDefaultsTest, KeepsACopyOfAMalformedFile) {
    const std::string broken = "settleDelay = fast\nrestoreSizes = false\n{\"json\": 1}\n";
    putText(file(), broken);
    auto defaults = open();
    EXPECT_EQ(defaults.number("settleDelay"), std::nullopt);
    EXPECT_EQ(defaults.boolean("restoreSizes"), false);
    EXPECT_TRUE(defaults.set("settleDelay", 1.0));
    EXPECT_EQ(textOf(file().string() + ".corrupt"), broken);
    EXPECT_EQ(textOf(file()), "settleDelay = 1.0\nrestoreSizes = false\n{\"json\": 1}\n");
}

TEST_F(QtUserDefaultsTest, FollowsAndWatchesASymbolicLink) {
    const auto target = m_folder.path() / "dotfiles" / "vantrel.conf";
    putText(target, "a = 1\n");
    std::filesystem::create_directories(file().parent_path());
    std::filesystem::create_symlink(target, file());
    auto defaults = open();
    EXPECT_TRUE(defaults.set("a", std::int64_t{2}));
    EXPECT_TRUE(std::filesystem::is_symlink(file()));
    EXPECT_EQ(textOf(target), "a = 2\n");

    putText(m_folder.path() / "dotfiles" / "new", "a = 3\n");
    std::filesystem::rename(m_folder.path() / "dotfiles" / "new", target);
    EXPECT_TRUE(waitFor([&] { return defaults.integer("a") == 3; }));
}

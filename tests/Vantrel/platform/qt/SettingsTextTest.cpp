#include "Vantrel/platform/qt/SettingsText.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

using namespace vantrel;

namespace {

using Values = std::map<std::string, DefaultsValue, std::less<>>;

} // namespace

TEST(SettingsText, ParsesCommentsSpacesAndTypes) {
    const auto content = SettingsText::parse("# mine\n"
                                             "autoRestore = false   # at home only\n"
                                             "\n"
                                             "  settleDelay=1.5\n"
                                             "dockFrequency = \"daily # not a comment\"  # a comment\n"
                                             "saveKeyCode = 12\n");
    EXPECT_EQ(content.values, (Values{{"autoRestore", false},
                                      {"settleDelay", 1.5},
                                      {"dockFrequency", std::string("daily # not a comment")},
                                      {"saveKeyCode", std::int64_t{12}}}));
    EXPECT_TRUE(content.invalidLines.empty());
    // Lines of other systems, and none at the end.
    EXPECT_EQ(SettingsText::parse("a = 1\r\nb = true").values, (Values{{"a", std::int64_t{1}}, {"b", true}}));
}

TEST(SettingsText, ReportsUnreadableLines) {
    const auto content = SettingsText::parse("autoRestore = yes\nrestoreSizes = true\nshowHUD\n= 5\n"
                                             "a = [1]\nb = \"open\nc = \xff\n");
    EXPECT_EQ(content.values, (Values{{"restoreSizes", true}}));
    std::vector<std::size_t> lines;
    for (const auto& found : content.invalidLines) {
        lines.push_back(found.line);
    }
    EXPECT_EQ(lines, (std::vector<std::size_t>{1, 3, 4, 5, 6, 7}));
    EXPECT_EQ(content.invalidLines.at(0).text, "autoRestore = yes");
    // Searching it again from every # on would take minutes.
    const std::string endless = "a = \"" + std::string(1'000'000, '#');
    EXPECT_EQ(SettingsText::parse(endless).invalidLines.size(), 1U);
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
    const Values values{{"text", text + "é"}, {"number", number}, {"whole", whole}, {"flag", flag}};
    auto file = SettingsText::heading();
    for (const auto& [key, value] : values) {
        file = SettingsText::withValue(file, key, value);
    }
    RC_ASSERT(SettingsText::parse(file).values == values);
}

#include "Vantrel/platform/qt/SettingsText.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

using namespace vantrel;

namespace {

using Values = std::map<std::string, DefaultsValue, std::less<>>;

const std::string byHand = "# mine\n"
                           "autoRestore = false   # at home only\n"
                           "\n"
                           "  settleDelay=1.5\n"
                           "dockFrequency = \"daily # not a comment\"  # a comment\n"
                           "saveKeyCode = 12\n";

} // namespace

TEST(SettingsText, ReadsWhatAPersonWrites) {
    const auto content = SettingsText::parse(byHand);
    EXPECT_EQ(content.values, (Values{{"autoRestore", false},
                                      {"settleDelay", 1.5},
                                      {"dockFrequency", std::string("daily # not a comment")},
                                      {"saveKeyCode", std::int64_t{12}}}));
    EXPECT_TRUE(content.misunderstandings.empty());
}

TEST(SettingsText, NamesTheLinesItCannotRead) {
    const auto content = SettingsText::parse("autoRestore = yes\nrestoreSizes = true\nshowHUD\n= 5\n"
                                             "a = [1]\nb = \"open\nc = \xff\n");
    EXPECT_EQ(content.values, (Values{{"restoreSizes", true}}));
    std::vector<std::size_t> lines;
    for (const auto& found : content.misunderstandings) {
        lines.push_back(found.line);
    }
    EXPECT_EQ(lines, (std::vector<std::size_t>{1, 3, 4, 5, 6, 7}));
    EXPECT_EQ(content.misunderstandings.at(0).text, "autoRestore = yes");
}

TEST(SettingsText, ReadsLinesOfOtherSystemsAndAMissingLastNewline) {
    EXPECT_EQ(SettingsText::parse("a = 1\r\nb = true").values, (Values{{"a", std::int64_t{1}}, {"b", true}}));
}

TEST(SettingsText, ChangesOneValueAndNothingElse) {
    EXPECT_EQ(SettingsText::withValue(byHand, "autoRestore", true),
              "# mine\n"
              "autoRestore = true  # at home only\n"
              "\n"
              "  settleDelay=1.5\n"
              "dockFrequency = \"daily # not a comment\"  # a comment\n"
              "saveKeyCode = 12\n");
}

TEST(SettingsText, KeepsLinesThatNobodyUnderstands) {
    EXPECT_EQ(SettingsText::withValue("what is this\nshowHUD = maybe", "showHUD", false),
              "what is this\nshowHUD = false\n");
    EXPECT_EQ(SettingsText::withValue("what is this", "showHUD", false), "what is this\nshowHUD = false\n");
}

TEST(SettingsText, RemovesEveryLineOfAKey) {
    EXPECT_EQ(SettingsText::withoutKey("a = 1\n# a = 2\nb = 3\na = 4\n", "a"), "# a = 2\nb = 3\n");
}

TEST(SettingsText, ANewFileExplainsItselfWithoutSettingAnything) {
    EXPECT_EQ(SettingsText::parse(SettingsText::heading()), SettingsText::Content{});
}

RC_GTEST_PROP(SettingsText, WhatIsWrittenIsReadBackWithItsType,
              (double number, std::int64_t whole, bool flag)) {
    const auto text = *rc::gen::container<std::string>(rc::gen::inRange('\x01', '\x7f'));
    const Values values{{"text", text + "é"}, {"number", number}, {"whole", whole}, {"flag", flag}};
    auto file = SettingsText::heading();
    for (const auto& [key, value] : values) {
        file = SettingsText::withValue(file, key, value);
    }
    RC_ASSERT(SettingsText::parse(file).values == values);
}

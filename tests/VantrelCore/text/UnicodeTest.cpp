#include "VantrelCore/text/Unicode.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace vantrel {
namespace {

using namespace std::string_literals;

TEST(Unicode, LowerCaseFollowsUnicodeWithoutALanguage) {
    EXPECT_EQ(Unicode::lowercased("AZ Report 2.TXT [@"), "az report 2.txt [@");
    EXPECT_EQ(Unicode::lowercased("ΟΔΟΣ I"), "οδος i"); // a sigma at the end of a word
    EXPECT_EQ(Unicode::lowercased("İ"), "i\u0307");
}

TEST(Unicode, CharactersAreWhatTheUserSees) {
    const struct {
        std::string text;
        std::vector<std::size_t> ends;
    } cases[] = {
        {"", {}},
        {"a\r\nb\n\r", {1, 3, 4, 5, 6}},
        {"e\u0301x", {3, 4}},              // a letter and its accent
        {"é\r\nb", {2, 4, 5}},             // the same rule beyond ASCII
        {"👨‍👩‍👧!", {18, 19}}, // a family, joined
        {"🇩🇪🇫🇷", {8, 16}},                 // two flags
        {"\xff\xfe"s + "a", {1, 2, 3}},    // bytes of no encoding
        {"a\0b"s, {1, 2, 3}},
    };

    for (const auto& [text, ends] : cases) {
        EXPECT_EQ(Unicode::characterEnds(text), ends) << text;
        EXPECT_EQ(Unicode::characterCount(text), ends.size()) << text;
    }
    EXPECT_EQ(Unicode::characterEnds("🇩🇪🇫🇷a", 2), (std::vector<std::size_t>{8, 16}));
    EXPECT_EQ(Unicode::prefix("🇩🇪🇫🇷a", 1), "🇩🇪");
    EXPECT_EQ(Unicode::prefix("abc", 5), "abc");
    EXPECT_EQ(Unicode::prefix("abc", 0), "");
}

TEST(Unicode, TrimmingTakesWhiteSpaceOfEveryKindFromTheEndsOnly) {
    EXPECT_EQ(Unicode::trimmed(" \t\r\n Work desk\u00a0\u2003\u2028"), "Work desk");
    EXPECT_EQ(Unicode::trimmed("\u3000é\u3000"), "é");
    EXPECT_EQ(Unicode::trimmed(" \n\u00a0"), "");
    EXPECT_EQ(Unicode::trimmed(" \xff "), "\xff");
}

TEST(Unicode, InvalidBytesBecomeReplacementCharacters) {
    EXPECT_EQ(Unicode::validUtf8("K\xe4se, Käse ☕"), "K\uFFFDse, Käse ☕"); // Latin-1
    EXPECT_EQ(Unicode::validUtf8("a\xe2\x98"), "a\uFFFD");                   // cut off in the middle
    EXPECT_EQ(Unicode::validUtf8("\xc0\xaf"), "\uFFFD\uFFFD");               // overlong
    EXPECT_EQ(Unicode::validUtf8("\xed\xa0\x80"), "\uFFFD\uFFFD\uFFFD");     // a surrogate
    EXPECT_EQ(Unicode::validUtf8("a\0b\xff"s), "a\0b\uFFFD"s);
}

TEST(Unicode, ThreadsDoNotDisturbEachOther) {
    const std::string flags = "🇩🇪🇫🇷🇮🇹é";
    const std::vector<std::size_t> expected = Unicode::characterEnds(flags);
    std::vector<int> failures(4);
    {
        std::vector<std::jthread> threads;
        threads.reserve(failures.size());
        for (auto& failed : failures) {
            threads.emplace_back([&] {
                for (int i = 0; i < 2000; ++i) {
                    failed +=
                        Unicode::characterEnds(flags) != expected || Unicode::lowercased("ÄÖÜ") != "äöü";
                }
            });
        }
    }
    EXPECT_EQ(failures, std::vector<int>(4));
}

} // namespace
} // namespace vantrel

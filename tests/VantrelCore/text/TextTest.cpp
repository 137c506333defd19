// Unicode, comparison, versions and text for terminals.
#include "VantrelCore/text/LocalizedComparison.h"
#include "VantrelCore/text/SafeText.h"
#include "VantrelCore/text/SemVer.h"
#include "VantrelCore/text/Unicode.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <thread>
#include <vector>

namespace vantrel {
namespace {

using testing::ElementsAre, testing::Optional;
using namespace std::string_literals;

TEST(LocalizedComparison, OrdersNamesByLanguageIgnoringCase) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"en", {"", "alpha", "Beta", "école", "Edit", "gamma", "Öffnen", "resume", "résumé", "Zeta"}},
        {"sv", {"alpha", "Zeta", "Ångström", "Öffnen"}},
        // Processes started without a language.
        {"en_US_POSIX", {"alpha", "Beta", "gamma"}},
        {"no_such_language", {"alpha", "Beta", "gamma"}},
    };
    for (const auto& [locale, ordered] : cases) {
        for (std::size_t i = 0; i + 1 < ordered.size(); ++i) {
            EXPECT_TRUE(LocalizedComparison::caseInsensitive(ordered[i], ordered[i + 1], locale) < 0)
                << locale << ": " << ordered[i] << ", " << ordered[i + 1];
            EXPECT_TRUE(LocalizedComparison::caseInsensitive(ordered[i + 1], ordered[i], locale) > 0);
        }
    }
    EXPECT_TRUE(LocalizedComparison::caseInsensitive("STRAẞE ÉCOLE", "straße école") == 0);
    EXPECT_TRUE(LocalizedComparison::caseInsensitive("bro\xffken", "BRO\xffKEN") == 0);
}

TEST(SafeText, RemovesControlCharactersOnly) {
    const std::pair<std::string, const char*> cases[] = {
        {"Grüße, 日本語 👨‍👩‍👧", "Grüße, 日本語 👨‍👩‍👧"},
        {"\x1b]0;owned\x07 \x1b[2J", " ]0;owned   [2J"},
        {"\u009b31m\u0085\x7f\t\r", " 31m    "},
        {"a\u2028b\u2029c\nd\0e"s, "a b c d e"},
        {"exe.\u202etxt\u2066!\u2069\u200f\u061c", "exe.txt!"},
        {"\xff\x9b", "\uFFFD\uFFFD"},
    };
    for (const auto& [text, line] : cases) {
        EXPECT_EQ(SafeText::line(text), line);
    }
    EXPECT_EQ(SafeText::lines("one\ntwo\r\n\x1bthree\n"), "one\ntwo \n three\n");
}

TEST(SafeText, EscapesUnprintableCharactersInJson) {
    const nlohmann::json document{{"título", "é\x1b\x7f\u009b\u2028\u202e\u200d\U000e0041"}};
    const std::string escaped = SafeText::json(document.dump(2));
    EXPECT_EQ(escaped, "{\n  \"título\": "
                       "\"é\\u001b\\u007f\\u009b\\u2028\\u202e\\u200d\\udb40\\udc41\"\n}");
    EXPECT_EQ(nlohmann::json::parse(escaped), document);
}

TEST(SemVer, ParsesWholeNumbersBetweenDots) {
    EXPECT_THAT(SemVer::components("1.010.0"), Optional(ElementsAre(1, 10, 0)));
    EXPECT_THAT(SemVer::components("9223372036854775807"), Optional(ElementsAre(INT64_MAX)));
    for (const char* invalid : {"", ".", "1.", ".1", "1..2", "1.2.x", "1.-2", "-0", "+1", " 1", "1 ", "0x1",
                                "1e3", "v1", "1.2-beta", "9223372036854775808", "١"}) {
        EXPECT_EQ(SemVer::components(invalid), std::nullopt) << invalid;
    }
}

TEST(SemVer, ComparesComponentsAndIgnoresInvalidVersions) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"1.10", "1.9", true}, {"1.2", "1.2.0", false}, {"1.2.1", "1.2", true}, {"2", "1.9.9", true},
        {"1.2", "1.2", false}, {"1.2.x", "1.0", false}, {"2.0", "1..2", false}};

    for (const auto& [a, b, isNewer] : cases) {
        EXPECT_EQ(SemVer::isNewer(a, b), isNewer) << a << " against " << b;
        EXPECT_FALSE(SemVer::isNewer(b, a)) << b << " against " << a;
    }
}

TEST(Unicode, LowersCaseIndependentlyOfLanguage) {
    EXPECT_EQ(Unicode::lowercased("AZ Report 2.TXT [@"), "az report 2.txt [@");
    EXPECT_EQ(Unicode::lowercased("ΟΔΟΣ I"), "οδος i"); // a sigma at the end of a word
    EXPECT_EQ(Unicode::lowercased("İ"), "i\u0307");
}

TEST(Unicode, SplitsGraphemeClusters) {
    const std::pair<std::string, std::vector<std::size_t>> cases[] = {
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

TEST(Unicode, TrimsEveryKindOfWhiteSpace) {
    EXPECT_EQ(Unicode::trimmed(" \t\r\n Work desk\u00a0\u2003\u2028"), "Work desk");
    EXPECT_EQ(Unicode::trimmed("\u3000é\u3000"), "é");
    EXPECT_EQ(Unicode::trimmed(" \n\u00a0"), "");
    EXPECT_EQ(Unicode::trimmed(" \xff "), "\xff");
}

TEST(Unicode, ReplacesInvalidBytes) {
    EXPECT_EQ(Unicode::validUtf8("K\xe4se, Käse ☕"), "K\uFFFDse, Käse ☕"); // Latin-1
    EXPECT_EQ(Unicode::validUtf8("a\xe2\x98"), "a\uFFFD");                   // cut off in the middle
    EXPECT_EQ(Unicode::validUtf8("\xc0\xaf"), "\uFFFD\uFFFD");               // overlong
    EXPECT_EQ(Unicode::validUtf8("\xed\xa0\x80"), "\uFFFD\uFFFD\uFFFD");     // a surrogate
    EXPECT_EQ(Unicode::validUtf8("a\0b\xff"s), "a\0b\uFFFD"s);
}

TEST(Unicode, IsThreadSafe) {
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

#include "VantrelCore/text/SafeText.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

using namespace std::string_literals;

TEST(SafeText, LeavesWhatPeopleReadAndTakesWhatSteersATerminal) {
    const struct {
        std::string text;
        const char* line;
    } cases[] = {
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

TEST(SafeText, JsonEscapesWhatIsNotPrintableAndMeansTheSame) {
    const nlohmann::json document{{"título", "é\x1b\x7f\u009b\u2028\u202e\u200d\U000e0041"}};
    const std::string escaped = SafeText::json(document.dump(2));
    EXPECT_EQ(escaped, "{\n  \"título\": "
                       "\"é\\u001b\\u007f\\u009b\\u2028\\u202e\\u200d\\udb40\\udc41\"\n}");
    EXPECT_EQ(nlohmann::json::parse(escaped), document);
}

} // namespace
} // namespace vantrel

#include "Vantrel/commands/shell/Completion.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

CommandShape program() {
    const OptionShape help{.names = {"-h", "--help"}};
    const OptionShape desk{.names = {"--desk"}, .value = "TEXT", .kind = ValueKind::desk};
    const OptionShape name{
        .names = {"name"}, .value = "TEXT", .kind = ValueKind::layout, .isPositional = true};
    const OptionShape newName{.names = {"new-name"}, .value = "TEXT", .isPositional = true};
    const OptionShape scenes{.names = {"SCENE"},
                             .value = "TEXT",
                             .kind = ValueKind::scene,
                             .isPositional = true,
                             .isRepeated = true};
    return {.name = "tool",
            .options = {help},
            .commands = {{.name = "layouts",
                          .options = {help},
                          .commands = {{.name = "apply", .options = {help, desk, name}},
                                       {.name = "rename", .options = {help, name, newName}}}},
                         {.name = "add", .options = {help, scenes}}}};
}

TEST(Completion, OffersWhatMayStandAtTheCursor) {
    using Words = std::vector<std::string>;
    const Words verbs{"layouts", "add"};
    struct Case {
        Words words;
        Words offered;
        std::optional<ValueKind> kind;
    };
    const Case cases[] = {{{}, verbs, {}},
                          {{""}, verbs, {}},
                          {{"-"}, {"-h", "--help"}, {}},
                          {{"layouts", "a"}, {"apply", "rename"}, {}},
                          {{"layouts", "apply", ""}, {}, ValueKind::layout},
                          {{"layouts", "apply", "-"}, {"-h", "--help", "--desk"}, {}},
                          {{"layouts", "apply", "--desk", ""}, {}, ValueKind::desk},
                          {{"layouts", "apply", "--desk", "apply", "A"}, {}, ValueKind::layout},
                          {{"layouts", "apply", "--", "-"}, {}, ValueKind::layout},
                          {{"layouts", "apply", "A", ""}, {"-h", "--help", "--desk"}, {}},
                          {{"layouts", "rename", "add", ""}, {}, ValueKind::text},
                          {{"add", "One", "Two", ""}, {}, ValueKind::scene},
                          {{"unknown", ""}, {"-h", "--help"}, {}}};
    for (const Case& each : cases) {
        const auto expected = Completion::expected(program(), each.words);
        Words offered;
        for (const auto& candidate : expected.words) {
            offered.push_back(candidate.word);
        }
        EXPECT_EQ(offered, each.offered) << testing::PrintToString(each.words);
        EXPECT_EQ(expected.kind, each.kind) << testing::PrintToString(each.words);
    }
    const auto typed = Completion::expected(program(), {"layouts", "apply", "--desk", "Home", "A", ""}).typed;
    EXPECT_EQ(typed, (std::map<std::string, std::string>{{"--desk", "Home"}, {"name", "A"}}));
}

TEST(Completion, QuotesForEachShell) {
    const std::vector<Completion::Candidate> scenes{
        {"Work", "Desk"}, {"Work: \"à la\" $x", "Desk"}, {"Won't", ""}, {"Two\nlines", ""}};
    const auto bash = [&](const char* current) { return Completion::answer("bash", scenes, current); };
    EXPECT_EQ(bash("Wor"), "Work\nWork\\:\\ \\\"à\\ la\\\"\\ \\$x\n");
    EXPECT_EQ(bash("Work\\:\\ "), "Work\\:\\ \\\"à\\ la\\\"\\ \\$x\n");
    EXPECT_EQ(bash("\"Work:"), "Work: \\\"à la\\\" \\$x\n");
    EXPECT_EQ(bash("'Won"), "Won'\\''t\n");
    EXPECT_EQ(Completion::answer("zsh", scenes, ""), "Work:Desk\nWork\\: \"à la\" $x:Desk\nWon't\n");
    EXPECT_EQ(Completion::answer("fish", scenes, ""), "Work\tDesk\nWork: \"à la\" $x\tDesk\nWon't\t\n");
    EXPECT_EQ(Completion::unquoted(R"(Work\ "at home" 'of\' "a\"b)"), R"(Work at home of\ a"b)");
}

} // namespace
} // namespace vantrel

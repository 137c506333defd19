#include "Vantrel/commands/ControlCall.h"

#include "Vantrel/commands/ControlNames.h"

#include <gmock/gmock.h>
#include <stdexcept>

namespace vantrel {
namespace {

TEST(ControlCall, WhoeverAsksIsAnsweredOnceWhateverBecomesOfTheCall) {
    ControlReply kept;
    const auto failed = std::string(ControlNames::failed);
    struct Case {
        const char* name;
        std::function<void(const ControlReply& reply)> call;
        std::string answer;
        std::size_t lines = 0;
    };
    const Case cases[] = {
        {"answers", [](const ControlReply& reply) { reply("done"); }, "done"},
        {"answers twice", [](const ControlReply& reply) { reply("done"), reply("again"); }, "done"},
        {"answers later", [&](const ControlReply& reply) { kept = reply; }, "later"},
        {"throws", [](const ControlReply&) { throw std::runtime_error("no room"); }, failed, 1},
        {"throws after its answer",
         [](const ControlReply& reply) {
             reply("done");
             throw std::runtime_error("no room");
         },
         "done", 1},
        {"forgets", [](const ControlReply&) {}, failed}};
    for (const Case& each : cases) {
        std::vector<std::string> answers;
        std::vector<std::string> lines;
        ControlCall::run(
            {.name = "RestoreNow",
             .arguments = {},
             .result = "report",
             .call = [&](const auto&, const ControlReply& reply) { each.call(reply); }},
            {},
            [&](const ControlAnswer& answer) {
                answers.push_back(answer ? answer->get<std::string>() : answer.error().error);
            },
            [&](const std::string& line) { lines.push_back(line); });
        if (const auto reply = std::exchange(kept, nullptr)) {
            EXPECT_THAT(answers, testing::IsEmpty());
            reply("later");
        }
        EXPECT_THAT(answers, testing::ElementsAre(each.answer)) << each.name;
        EXPECT_EQ(lines,
                  std::vector<std::string>(each.lines, "bus: RestoreNow: stopped by an error: no room"))
            << each.name;
    }
}

} // namespace
} // namespace vantrel

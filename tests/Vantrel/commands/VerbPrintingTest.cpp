#include "Vantrel/commands/verbs/VerbTable.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

const std::string hostile = "\x1b]0;owned\x07\nLayout deleted.\u009b2J\u202e";

template <typename Print>
std::string printed(Print&& print) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    print();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
}

TEST(VerbPrinting, NothingFromOutsideReachesTheTerminalAsItIs) {
    using namespace VerbPrinting;
    const nlohmann::json answer{{"name", hostile}, {"list", {{{"deep", hostile}}}}};
    const auto sentence = [](const nlohmann::json& shown) {
        return shown.at("name").get<std::string>() + shown.at("list")[0].at("deep").get<std::string>() + '\n';
    };
    const std::string safe = " ]0;owned  Layout deleted. 2J";
    EXPECT_EQ(printed([&] { show<nlohmann::json>(answer, VerbOutput::text, sentence); }), safe + safe + '\n');
    EXPECT_EQ(printed([&] { complain(hostile, ExitCode::failed); }), "vantrelctl: " + safe + '\n');
    EXPECT_EQ(printed([&] { print("a log line of \x1b[1m\n"); }), "a log line of  [1m\n");
    const auto json = printed([&] { show<nlohmann::json>(answer, VerbOutput::json, sentence); });
    EXPECT_EQ(json.find_first_of("\x1b\x07\xc2\xe2"), std::string::npos) << json;
    EXPECT_EQ(nlohmann::json::parse(json), answer);
}

} // namespace
} // namespace vantrel

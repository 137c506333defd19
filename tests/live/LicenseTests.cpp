// Trial, license and updates as a user meets them: the program of a vendor whose server is the test's own.
#include "tests/live/ProgramRun.h"

#include "tests/server/LoopbackServer.h"
#include "tests/server/TestLicense.h"

#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace vantrel::live {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using vantrel::testing::LoopbackServer;
namespace TestLicense = vantrel::testing::TestLicense;

LoopbackServer::Answer vendorsAnswer(const LoopbackServer::Request& request) {
    if (request.path == "/changelog") {
        return LoopbackServer::answer(200, R"({"releases":[{"version":"99.1"}]})");
    }
    const auto body = nlohmann::json::parse(request.body, nullptr, false);
    if (request.path == "/activate" && body.value("key", "") == "GOOD-KEY") {
        return LoopbackServer::answer(200, TestLicense::signedLicense(body.at("machine")));
    }
    return request.path == "/deactivate" ? LoopbackServer::answer(204)
                                         : LoopbackServer::answer(404, R"({"error":"No such key."})");
}

TEST(License, IsGotFromTheServerKeptAndGivenBackForGood) {
    PrivateDesk desk({{0, 0, 1280, 1024}}, "openbox");
    LoopbackServer server(vendorsAnswer);
    const auto start = [&] {
        ProgramRun run(desk, {VANTREL_OF_TEST_VENDOR_PROGRAM}, {"VANTREL_TEST_SERVER=" + server.url()});
        EXPECT_TRUE(waitUntil([&] { return vantrelctl(desk, {"status"}).code == 0; })) << run.output();
        return run;
    };
    const auto file = desk.home().dataFolder() / "Vantrel" / "license.json";
    std::string document;
    {
        const auto run = start();
        EXPECT_THAT(vantrelctl(desk, {"license"}).output, HasSubstr("The trial ends in 14 days."));
        const auto refused = vantrelctl(desk, {"license", "activate", "BAD-KEY"});
        EXPECT_EQ(refused.code, 1);
        EXPECT_THAT(refused.output, HasSubstr("No such key."));
        const auto activated = vantrelctl(desk, {"license", "activate", "GOOD-KEY"});
        EXPECT_EQ(activated.code, 0);
        EXPECT_THAT(activated.output, AllOf(HasSubstr("Licensed for this computer."), HasSubstr("personal")));
        EXPECT_TRUE(waitUntil([&] {
            return vantrelctl(desk, {"status"}).output.find("Update available · v99.1") != std::string::npos;
        }));
        document = [&] {
            std::ifstream stream(file);
            return std::string(std::istreambuf_iterator<char>(stream), {});
        }();
    }
    {
        const auto run = start();
        const auto status = nlohmann::json::parse(vantrelctl(desk, {"license", "--json"}).output);
        EXPECT_EQ(status.at("state"), "licensed");
        EXPECT_EQ(vantrelctl(desk, {"license", "deactivate"}).code, 0);
    }
    std::ofstream(file) << document;
    const auto run = start();
    const auto replayed = nlohmann::json::parse(vantrelctl(desk, {"license", "--json"}).output);
    EXPECT_EQ(replayed.at("state"), "refused");
    EXPECT_THAT(replayed.at("reason").get<std::string>(), HasSubstr("deactivated"));
    EXPECT_THAT(vantrelctl(desk, {"restore"}).output, HasSubstr("The license does not allow it."));
    EXPECT_THAT(vantrelctl(desk, {"log"}).output,
                HasSubstr("license gate: not entitled, restore and learning paused"));
}

TEST(License, ABuildWithoutAVendorNeedsNone) {
    PrivateDesk desk({{0, 0, 1280, 1024}}, "openbox");
    const auto run = startVantrel(desk);
    EXPECT_THAT(vantrelctl(desk, {"status"}).output, HasSubstr("needs no license"));
    const auto refused = vantrelctl(desk, {"license", "activate", "KEY"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.output, HasSubstr("needs no license"));
}

} // namespace
} // namespace vantrel::live

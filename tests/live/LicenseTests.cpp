// Trial, license and updates as a user meets them: the program of a vendor whose server is the test's own.
#include "tests/live/VantrelDesk.h"
#include "tests/server/LoopbackServer.h"
#include "tests/server/TestLicense.h"

#include <filesystem>
#include <gmock/gmock.h>

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
    const VantrelDesk desk("openbox");
    LoopbackServer server(vendorsAnswer);
    const auto start = [&] {
        return desk.startVantrel({"VANTREL_TEST_SERVER=" + server.url()}, VANTREL_OF_TEST_VENDOR_PROGRAM);
    };
    const auto file = desk.vantrelFolder() / "license.json";
    const auto copy = desk.home().path() / "copy.json";
    {
        const auto run = start();
        EXPECT_THAT(desk.done({"license"}), HasSubstr("The trial ends in 14 days."));
        EXPECT_THAT(desk.refused({"license", "activate", "BAD-KEY"}), HasSubstr("No such key."));
        EXPECT_THAT(desk.done({"license", "activate", "GOOD-KEY"}),
                    AllOf(HasSubstr("Licensed for this computer."), HasSubstr("personal")));
        EXPECT_TRUE(waitUntil(
            [&] { return desk.done({"status"}).find("Update available · v99.1") != std::string::npos; }));
        std::filesystem::copy_file(file, copy);
    }
    {
        const auto run = start();
        EXPECT_EQ(desk.asked({"license"}).at("state"), "licensed");
        desk.done({"license", "deactivate"});
    }
    std::filesystem::copy_file(copy, file, std::filesystem::copy_options::overwrite_existing);
    const auto run = start();
    const auto replayed = desk.asked({"license"});
    EXPECT_EQ(replayed.at("state"), "refused");
    EXPECT_THAT(replayed.at("reason").get<std::string>(), HasSubstr("deactivated"));
    EXPECT_THAT(desk.control({"restore"}).output, HasSubstr("The license does not allow it."));
    EXPECT_GE(desk.logged("license gate: not entitled, restore and learning paused"), 1U);
}

} // namespace
} // namespace vantrel::live

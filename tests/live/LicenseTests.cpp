// Trial, license and updates as a user meets them, with a vendor whose server belongs to the test.
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

// Its leases ended a day ago, so that one that is given back ends as soon as it is not renewed.
LoopbackServer::Answer vendorsAnswer(const LoopbackServer::Request& request, bool& isGivenBack) {
    if (request.path == "/changelog") {
        return LoopbackServer::answer(200, R"({"releases":[{"version":"99.1"}]})");
    }
    const auto body = nlohmann::json::parse(request.body, nullptr, false);
    if (request.path == "/activate" && body.value("key", "") == "GOOD-KEY") {
        const auto now = std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
        return LoopbackServer::answer(200, TestLicense::signedLease(body, now - std::chrono::days{31}));
    }
    if (request.path == "/renew") {
        return LoopbackServer::answer(isGivenBack ? 410 : 503);
    }
    isGivenBack = isGivenBack || request.path == "/deactivate";
    return request.path == "/deactivate" ? LoopbackServer::answer(204)
                                         : LoopbackServer::answer(404, R"({"error":"No such key."})");
}

TEST(License, ActivatesSurvivesARestartAndCannotBeUsedOnceDeactivated) {
    const VantrelDesk desk("openbox");
    LoopbackServer server([isGivenBack = false](const LoopbackServer::Request& request) mutable {
        return vendorsAnswer(request, isGivenBack);
    });
    const auto start = [&] {
        return desk.startVantrel({"VANTREL_TEST_SERVER=" + server.url()}, VANTREL_OF_TEST_VENDOR_PROGRAM);
    };
    const auto lease = desk.vantrelFolder() / "license.json";
    const auto record = desk.home().path() / "config/vantrel/license-record.json";
    const auto kept = desk.home().path() / "kept";
    std::filesystem::create_directory(kept);
    {
        const auto run = start();
        EXPECT_THAT(desk.done({"license"}), HasSubstr("The trial ends in 14 days."));
        EXPECT_THAT(desk.refused({"license", "activate", "BAD-KEY"}), HasSubstr("No such key."));
        EXPECT_THAT(desk.done({"license", "activate", "GOOD-KEY"}),
                    AllOf(HasSubstr("Licensed for this computer."), HasSubstr("personal")));
        EXPECT_TRUE(waitUntil([&] { return desk.done({"status"}).contains("Update available · v99.1"); }));
        std::filesystem::copy(lease, kept);
        std::filesystem::copy(record, kept);
    }
    {
        const auto run = start();
        EXPECT_EQ(desk.asked({"license"}).at("state"), "licensed");
        desk.done({"license", "deactivate"});
    }
    for (const auto& file : {lease, record}) {
        std::filesystem::copy_file(kept / file.filename(), file,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    const auto run = start();
    EXPECT_TRUE(waitUntil([&] { return desk.asked({"license"}).at("state") == "refused"; }))
        << "the server does not renew a lease that was given back";
    EXPECT_THAT(desk.done({"license"}), HasSubstr("no longer renews it"));
    EXPECT_THAT(desk.control({"restore"}).output, HasSubstr("The license does not allow moving windows."));
    EXPECT_GE(desk.logged("license gate: not entitled, restore and learning paused"), 1U);
}

} // namespace
} // namespace vantrel::live

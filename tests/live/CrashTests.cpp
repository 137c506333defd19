// A crash of the real program, from the report it leaves to the server that takes it at the next start.
#include "tests/live/ProgramRun.h"
#include "tests/server/LoopbackServer.h"

#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <nlohmann/json.hpp>

namespace vantrel::live {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using testing::LoopbackServer;
using ::testing::Not;
using ::testing::StartsWith;

std::vector<std::filesystem::path> crashReports(const PrivateDesk& desk) {
    const std::filesystem::directory_iterator entries(desk.home().dataFolder() / "Vantrel" / "crashes");
    return {begin(entries), end(entries)};
}

// The bodies of what was sent; the program asks the same server for other things, too.
std::vector<std::string> sentReports(const LoopbackServer& server) {
    std::vector<std::string> bodies;
    for (const auto& request : server.requests()) {
        if (request.path == "/crash") {
            bodies.push_back(request.body);
        }
    }
    return bodies;
}

TEST(Crash, ForcedIsReportedAndTheReportSentAtTheNextStart) {
    LoopbackServer server([](const LoopbackServer::Request&) { return LoopbackServer::answer(204); });
    PrivateDesk desk({{0, 0, 1280, 1024}}, "openbox");
    desk.open({"xterm", "-T", "Letter to Anna"});
    const auto start = [&](const std::string& crashTest) {
        return ProgramRun(desk, {VANTREL_OF_TEST_VENDOR_PROGRAM},
                          {"VANTREL_TEST_SERVER=" + server.url(), "VANTREL_CRASH_TEST=" + crashTest});
    };

    const auto crashed = start("1").ended();
    EXPECT_EQ(crashed.code, 128 + SIGABRT);
    EXPECT_THAT(crashed.output, HasSubstr("VANTREL_CRASH_TEST forced crash for end-to-end verification\n"));
    const auto reports = crashReports(desk);
    ASSERT_EQ(reports.size(), 1U);
    std::ifstream stream(reports.front());
    const std::string report(std::istreambuf_iterator<char>(stream), {});
    EXPECT_THAT(report, StartsWith("kind: signal\nsignal: SIGABRT\nversion: "));
    EXPECT_THAT(report, AllOf(HasSubstr("\nvantrel_of_test_vendor(main+"), Not(HasSubstr("Anna")),
                              Not(HasSubstr(desk.home().path().string()))));
    EXPECT_EQ(sentReports(server).size(), 0U);

    {
        // Without a vendor nobody sends it.
        const auto run = startVantrel(desk);
        EXPECT_THAT(vantrelctl(desk, {"status"}).output, HasSubstr("\ncrashes   1 report not sent\n"));
    }
    auto next = start("yes");
    ASSERT_TRUE(waitUntil([&] { return crashReports(desk).empty(); })) << next.output();
    ASSERT_EQ(sentReports(server).size(), 1U);
    const auto sent = nlohmann::json::parse(sentReports(server).front());
    EXPECT_EQ(sent.at("report"), report);
    EXPECT_THAT(report, HasSubstr("\nsystem: " + sent.at("macos").get<std::string>() + "\n"));
    EXPECT_TRUE(waitUntil(
        [&] { return vantrelctl(desk, {"log"}).output.find("crash report uploaded") != std::string::npos; }));

    kill(next.process().pid(), SIGTERM);
    EXPECT_EQ(next.ended().code, 0);
    EXPECT_TRUE(crashReports(desk).empty());
}

} // namespace
} // namespace vantrel::live

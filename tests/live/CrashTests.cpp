// A crash of the real program: its report, and the upload at the next start.
#include "tests/live/VantrelDesk.h"
#include "tests/server/LoopbackServer.h"

#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>

namespace vantrel::live {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using testing::LoopbackServer;
using ::testing::Not;
using ::testing::StartsWith;

TEST(Crash, LeavesAReportThatTheNextStartSends) {
    LoopbackServer server([](const LoopbackServer::Request&) { return LoopbackServer::answer(204); });
    // The program makes other requests to the same server.
    const auto sent = [&] {
        std::vector<std::string> bodies;
        for (const auto& request : server.requests()) {
            if (request.path == "/crash") {
                bodies.push_back(request.body);
            }
        }
        return bodies;
    };
    VantrelDesk desk("openbox");
    const auto reports = [&] {
        const std::filesystem::directory_iterator entries(desk.vantrelFolder() / "crashes");
        return std::vector<std::filesystem::path>(begin(entries), end(entries));
    };
    desk.open({"xterm", "-T", "Letter to Anna"});
    const auto environment = [&](const std::string& crashTest) {
        return std::vector{"VANTREL_TEST_SERVER=" + server.url(), "VANTREL_CRASH_TEST=" + crashTest};
    };

    const auto crashed = desk.run({VANTREL_OF_TEST_VENDOR_PROGRAM}, environment("1"));
    EXPECT_EQ(crashed.code, 128 + SIGABRT);
    EXPECT_THAT(crashed.output, HasSubstr("VANTREL_CRASH_TEST forced crash for end-to-end verification\n"));
    ASSERT_EQ(reports().size(), 1U);
    std::ifstream stream(reports().front());
    const std::string report(std::istreambuf_iterator<char>(stream), {});
    EXPECT_THAT(report, AllOf(StartsWith("kind: signal\nsignal: SIGABRT\nversion: "),
                              HasSubstr("\nvantrel_of_test_vendor(main+"), Not(HasSubstr("Anna")),
                              Not(HasSubstr(desk.home().path().string()))));
    {
        // A build without a vendor has nowhere to send it.
        const auto run = desk.startVantrel();
        EXPECT_THAT(desk.done({"status"}),
                    AllOf(HasSubstr("\ncrashes   1 report not sent\n"), HasSubstr("needs no license")));
        EXPECT_TRUE(sent().empty());
    }
    auto next = desk.startVantrel(environment("yes"), VANTREL_OF_TEST_VENDOR_PROGRAM);
    ASSERT_TRUE(waitUntil([&] { return reports().empty(); })) << next.output();
    ASSERT_EQ(sent().size(), 1U);
    const auto body = nlohmann::json::parse(sent().front());
    EXPECT_EQ(body.at("report"), report);
    EXPECT_THAT(report, HasSubstr("\nsystem: " + body.at("macos").get<std::string>() + "\n"));
    EXPECT_TRUE(waitUntil([&] { return desk.logged("crash report uploaded") == 1; }));
    EXPECT_EQ(next.endedBy(SIGTERM).code, 0);
    EXPECT_TRUE(reports().empty());
}

} // namespace
} // namespace vantrel::live

// Crash reports on a real disk, sent to a real server that behaves badly.
#include "Vantrel/diagnostics/CrashUploader.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "Vantrel/platform/posix/SystemClock.h"
#include "Vantrel/platform/qt/QtHttpClient.h"
#include "Vantrel/platform/qt/QtMainQueue.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"
#include "tests/Vantrel/platform/qt/QtApplication.h"
#include "tests/server/LoopbackServer.h"
#include "tests/simulated/SimulatedDefaults.h"
#include "tests/simulated/SimulatedTime.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <thread>

namespace vantrel {
namespace {

using testing::LoopbackServer;
using ::testing::UnorderedElementsAre;
using Then = LoopbackServer::Answer::Then;

// Nobody waits a minute for the answers that never come.
class ImpatientClient final : public HttpClient {
public:
    [[nodiscard]] std::unique_ptr<HttpExchange> send(const HttpRequest& request, Done done) override {
        auto asked = request;
        if (asked.body.find("unanswered") != std::string::npos) {
            asked.timeoutSeconds = 0.5;
        }
        return m_client.send(asked, std::move(done));
    }

private:
    QtHttpClient m_client{"vantrel/test"};
};

class CrashUploadServer : public ::testing::Test {
protected:
    void putReport(const std::string& text, int hour) {
        std::filesystem::create_directories(m_crashes);
        const auto file = m_crashes / (std::to_string(hour) + "-signal.crash");
        std::ofstream(file) << text;
        std::filesystem::last_write_time(file, std::filesystem::file_time_type() + std::chrono::hours(hour));
    }

    // What the log says after so many further messages.
    std::vector<std::string> messagesOfOneStart(const LoopbackServer& server, std::size_t count) {
        std::filesystem::remove(m_log.file());
        CrashUploader uploader(m_files, m_defaults, m_client, m_queue, m_log,
                               {.crashesDirectory = m_crashes, .apiServer = server.url(), .system = {}});
        uploader.uploadPendingReports();
        EXPECT_TRUE(testing::waitFor([&] { return messages().size() >= count; }));
        return messages();
    }

    [[nodiscard]] std::vector<std::string> messages() const {
        std::vector<std::string> messages;
        std::ifstream stream(m_log.file());
        for (std::string line; std::getline(stream, line);) {
            messages.push_back(line.substr(line.find("] ") + 2));
        }
        return messages;
    }

    [[nodiscard]] std::vector<std::string> left() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_crashes)) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

    TemporaryFolder m_folder;
    std::filesystem::path m_crashes = m_folder.path() / "crashes";
    PosixFileSystem m_files;
    SystemClock m_clock;
    QtMainQueue m_queue;
    simulated::SimulatedTime m_time;
    simulated::SimulatedDefaults m_defaults{m_time};
    AppLog m_log{m_folder.path(), m_files, m_clock};
    ImpatientClient m_client;
};

TEST_F(CrashUploadServer, TakesWhatItAcceptsAndTheRestWaitsForTheNextStart) {
    const std::map<std::string, std::function<LoopbackServer::Answer()>> answers{
        {"refused", [] { return LoopbackServer::answer(500); }},
        {"slow",
         [] {
             std::this_thread::sleep_for(std::chrono::milliseconds(300));
             return LoopbackServer::answer(204);
         }},
        {"garbled", [] { return LoopbackServer::Answer{.bytes = "\1\2 garbage \xff\r\n\r\n"}; }},
        {"unanswered", [] { return LoopbackServer::Answer{.bytes = "", .then = Then::hold}; }},
        {"endlessly unanswered",
         [] {
             return LoopbackServer::Answer{
                 .bytes = "HTTP/1.1 204 No", .then = Then::repeat, .repeated = " Content"};
         }},
    };
    int hour = 1;
    for (const std::string text :
         {"too old", "too old, too", "refused", "slow", "garbled", "unanswered", "endlessly unanswered"}) {
        putReport(text, hour++);
    }
    {
        LoopbackServer server([&](const LoopbackServer::Request& request) {
            return answers.at(nlohmann::json::parse(request.body).at("report"))();
        });
        const std::string failed = "crash report upload failed";
        EXPECT_THAT(messagesOfOneStart(server, 5),
                    ::testing::ElementsAre(failed, "crash report uploaded", failed, failed, failed));
        // Qt asks again by itself where a connection ends without an answer.
        std::set<std::string> sent;
        for (const auto& request : server.requests()) {
            sent.insert(nlohmann::json::parse(request.body).at("report"));
        }
        EXPECT_THAT(sent, ::testing::SizeIs(5));
        EXPECT_THAT(left(), UnorderedElementsAre("3-signal.crash", "5-signal.crash", "6-signal.crash",
                                                 "7-signal.crash"));
    }
    LoopbackServer healed([](const LoopbackServer::Request&) { return LoopbackServer::answer(204); });
    EXPECT_THAT(messagesOfOneStart(healed, 4), ::testing::Each("crash report uploaded"));
    EXPECT_THAT(left(), ::testing::IsEmpty());
}

} // namespace
} // namespace vantrel

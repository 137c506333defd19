// Crash reports of former runs, sent after a start: which, when, how, and what remains.
#include "Vantrel/diagnostics/CrashUploader.h"

#include "Vantrel/diagnostics/CrashUpload.h"
#include "Vantrel/diagnostics/VendorServer.h"
#include "tests/simulated/MemoryFileSystem.h"
#include "tests/simulated/SimulatedDefaults.h"
#include "tests/simulated/SimulatedHttp.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::filesystem::path folder = "/support/crashes";

HttpResult status(int number) {
    return HttpResponse{number, ""};
}

class CrashUploads : public ::testing::Test {
protected:
    // The `hour` orders them; names tell nothing of their age.
    void putReport(const std::string& name, int hour, const std::string& text = "kind: signal\n") {
        m_files.put(folder / name, text, Date{} + std::chrono::hours(hour));
    }

    // The first start's pass, whole.
    void start(const std::string& apiServer = "https://api.test") {
        AppLog log("/support", m_files, m_time);
        CrashUploader uploader(
            m_files, m_defaults, m_http, m_time, log,
            {.crashesDirectory = folder,
             .apiServer = apiServer,
             .system = {
                 .version = "1.2", .build = "b", .operatingSystem = "Test OS 3", .hardware = "Box 4"}});
        uploader.uploadPendingReportsAfterDelay();
        m_time.runFor(1000);
    }

    // Their texts in the order in which they were sent.
    [[nodiscard]] std::vector<std::string> sentReports() const {
        std::vector<std::string> reports;
        for (const HttpRequest& request : m_http.requests) {
            reports.push_back(nlohmann::json::parse(request.body).at("report"));
        }
        return reports;
    }

    [[nodiscard]] std::vector<std::string> left() const {
        std::vector<std::string> names;
        for (const auto& file : m_files.files()) {
            if (file.parent_path() == folder) {
                names.push_back(file.filename());
            }
        }
        return names;
    }

    [[nodiscard]] std::string logged() const { return m_files.content("/support/app.log").value_or(""); }

    simulated::MemoryFileSystem m_files;
    simulated::SimulatedTime m_time;
    simulated::SimulatedDefaults m_defaults{m_time};
    simulated::SimulatedHttp m_http{m_time};
};

TEST_F(CrashUploads, SendTheReportAsJsonAndDeleteIt) {
    putReport("7-exception.crash", 1, "kind: exception\n\xff\n");
    m_http.server = [this](const HttpRequest&) {
        EXPECT_GE(m_time.monotonicSeconds(), CrashUploader::delaySeconds);
        return status(204);
    };
    start();
    ASSERT_EQ(m_http.requests.size(), 1U);
    const auto& request = m_http.requests.front();
    EXPECT_EQ(request.method, HttpMethod::post);
    EXPECT_EQ(request.url, "https://api.test/crash");
    EXPECT_THAT(request.headers, ElementsAre(HttpHeader{"Content-Type", "application/json"}));
    EXPECT_EQ(request.timeoutSeconds, 60.0);
    EXPECT_EQ(nlohmann::json::parse(request.body), nlohmann::json({{"version", "1.2"},
                                                                   {"macos", "Test OS 3"},
                                                                   {"hardware", "Box 4"},
                                                                   {"kind", "exception"},
                                                                   {"report", "kind: exception\n\uFFFD\n"}}));
    EXPECT_THAT(left(), IsEmpty());
    EXPECT_THAT(logged(), HasSubstr("] crash report uploaded\n"));
}

TEST_F(CrashUploads, SendTheFiveNewestOldestFirst) {
    for (const auto& [name, hour] :
         {std::pair{"9", 1}, {"8", 2}, {"1", 3}, {"7", 4}, {"2", 5}, {"6", 6}, {"3", 7}}) {
        putReport(std::string(name) + "-signal.crash", hour, name);
    }
    putReport("notes.txt", 0);
    m_files.failReading(folder / "2-signal.crash", std::errc::permission_denied);
    std::size_t answered = 0;
    m_http.server = [&](const HttpRequest& request) {
        EXPECT_EQ(m_http.requests.size(), ++answered) << "two at a time";
        return status(request.body.find("\"7\"") == std::string::npos ? 200 : 500);
    };
    start();
    EXPECT_THAT(sentReports(), ElementsAre("1", "7", "6", "3"));
    EXPECT_THAT(left(), ElementsAre("2-signal.crash", "7-signal.crash", "notes.txt"));
}

TEST_F(CrashUploads, NeedConsentAServerAndAFolder) {
    start();
    for (int i = 0; i < 7; ++i) {
        putReport(std::to_string(i) + "-signal.crash", i);
    }
    start("https://api.vantrel.example");
    m_defaults.set("sendCrashReports", false);
    start();
    EXPECT_THAT(m_http.requests, IsEmpty());
    EXPECT_EQ(left().size(), 5U);
    EXPECT_EQ(logged(), "");
}

TEST(CrashUpload, SucceedsWithStatus2xxOnly) {
    for (const auto& [number, isTaken] :
         {std::pair{199, false}, {200, true}, {299, true}, {300, false}, {500, false}}) {
        EXPECT_EQ(CrashUpload::outcome(status(number)) == CrashUpload::Outcome::uploaded, isTaken) << number;
    }
    EXPECT_EQ(CrashUpload::outcome(std::unexpected(HttpFailure{})), CrashUpload::Outcome::failed);
}

TEST(VendorServer, IgnoresReservedNames) {
    for (const auto& [server, isReal] : {std::pair{"https://api.vantrel.example", false},
                                         {"https://api.vantrel.example:443", false},
                                         {"", false},
                                         {"https://api.example.org", true},
                                         {"http://127.0.0.1:8080", true}}) {
        EXPECT_EQ(VendorServer::isReal(server), isReal) << server;
    }
}

} // namespace
} // namespace vantrel

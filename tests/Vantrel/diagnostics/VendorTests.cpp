// What the program asks its vendor for: uploads of crash reports, and updates. On virtual time.
#include "Vantrel/diagnostics/CrashUpload.h"
#include "Vantrel/diagnostics/CrashUploader.h"
#include "Vantrel/diagnostics/UpdateChecker.h"
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
using ::testing::Optional;

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

struct Updater final : AppUpdater {
    int checks = 0;
    bool isAutomatic = true;
    void checkForUpdates() override { ++checks; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return isAutomatic; }
    void setAutomaticallyChecksForUpdates(bool does) override { isAutomatic = does; }
};

class UpdateCheckerTest : public ::testing::Test {
protected:
    UpdateCheckerTest() { start(); }

    void start(const std::string& version = "1.9") {
        checker = std::make_unique<UpdateChecker>(
            UpdateChecker::Options{.currentVersion = version,
                                   .apiServer = "https://api.test",
                                   .website = "https://www.test",
                                   .activateApplication = [this] { done.emplace_back("activated"); },
                                   .openPage = [this](const std::string& url) { done.push_back(url); }},
            defaults, time, time, http, log);
        checker->setChangeHandler([this] { ++changes; });
    }

    void serve(int status, const std::string& body) {
        http.server = [=](const HttpRequest&) { return HttpResponse{status, body}; };
    }

    // Looks again, as after seven hours.
    std::optional<std::string> next() {
        time.runFor(25'000);
        return checker->latestAvailable();
    }

    simulated::SimulatedTime time;
    simulated::MemoryFileSystem files;
    simulated::SimulatedDefaults defaults{time};
    simulated::SimulatedHttp http{time};
    AppLog log{"/support", files, time};
    std::vector<std::string> done;
    int changes = 0;
    std::unique_ptr<UpdateChecker> checker;
};

std::string changelog(const std::string& version) {
    return R"({"title":"Changes","releases":[{"version":")" + version +
           R"(","notes":["a"]},{"version":"99"}],"more":[[[]]]})";
}

TEST_F(UpdateCheckerTest, ChecksAtStartThenEverySixHoursAndOncePerHourAtMost) {
    serve(200, changelog("1.9"));
    checker->startup();
    EXPECT_EQ(http.requests.size(), 1U);
    EXPECT_EQ(http.requests.front().url, "https://api.test/changelog");
    EXPECT_EQ(defaults.date("updateChecker.lastCheck"), time.now());
    time.runFor(3599);
    start();
    checker->startup();
    EXPECT_EQ(http.requests.size(), 1U) << "another start within the hour";
    time.runFor(21'590);
    EXPECT_EQ(http.requests.size(), 1U);
    time.runFor(20);
    EXPECT_EQ(http.requests.size(), 2U);
    time.runFor(86'400);
    EXPECT_EQ(http.requests.size(), 6U);
    // A clock that was far ahead when it looked.
    defaults.set("updateChecker.lastCheck", dateFromIso8601("2099-01-01T00:00:00Z").value());
    start();
    checker->startup();
    EXPECT_EQ(http.requests.size(), 7U);
}

TEST_F(UpdateCheckerTest, OffersANewerVersionAndWithdrawsIt) {
    serve(200, changelog("1.10"));
    checker->startup();
    time.runFor(1);
    EXPECT_EQ(checker->latestAvailable(), "1.10");
    EXPECT_EQ(next(), "1.10");
    EXPECT_EQ(changes, 1);
    for (const char* const version : {"1.8", "1.9.0", "2.x", ""}) {
        serve(200, changelog(version));
        EXPECT_EQ(next(), std::nullopt) << version;
    }
    EXPECT_EQ(changes, 2);
    EXPECT_THAT(files.content(log.file()), Optional(HasSubstr("] update check: latestAvailable changed\n")));
}

TEST_F(UpdateCheckerTest, IgnoresFailuresAndMalformedReplies) {
    serve(200, changelog("2.0"));
    checker->startup();
    time.runFor(1);
    const std::string good = changelog("3.0");
    const std::pair<int, std::string> replies[] = {{500, good},
                                                   {204, good},
                                                   {200, good.substr(0, 30)},
                                                   {200, R"({"releases":[{"version":3}]})"},
                                                   {200, R"({"releases":[]})"},
                                                   {200, R"({"releases":[{"version":"3.0"},{}]})"}};
    for (const auto& [status, body] : replies) {
        serve(status, body);
        EXPECT_EQ(next(), "2.0") << status << " " << body;
    }
    http.server = {};
    EXPECT_EQ(next(), "2.0");
    EXPECT_EQ(changes, 1);
}

TEST_F(UpdateCheckerTest, TheCommandRunsTheUpdaterOrOpensTheDownloadPage) {
    checker->checkForUpdates();
    EXPECT_THAT(done, ElementsAre("activated", "https://www.test/download/"));
    EXPECT_FALSE(checker->automaticallyChecksForUpdates());
    Updater updater;
    checker->attach(&updater);
    checker->checkForUpdates();
    EXPECT_EQ(updater.checks, 1);
    EXPECT_THAT(done, ElementsAre("activated", "https://www.test/download/", "activated"));
    checker->setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(updater.isAutomatic || checker->automaticallyChecksForUpdates());
}

TEST_F(UpdateCheckerTest, DestructionCancelsTheCheck) {
    serve(200, changelog("2.0"));
    checker->startup();
    checker.reset();
    time.runFor(86'400);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(http.requests.size(), 1U);
}

} // namespace
} // namespace vantrel

// Updates as they are looked for and offered, on virtual time.
#include "Vantrel/diagnostics/UpdateChecker.h"

#include "tests/simulated/MemoryFileSystem.h"
#include "tests/simulated/SimulatedDefaults.h"
#include "tests/simulated/SimulatedHttp.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>

using namespace vantrel;
using namespace ::testing;

namespace {

struct Updater final : AppUpdater {
    int checks = 0;
    bool isAutomatic = true;
    void checkForUpdates() override { ++checks; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return isAutomatic; }
    void setAutomaticallyChecksForUpdates(bool does) override { isAutomatic = does; }
};

class UpdateCheckerTest : public Test {
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

} // namespace

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

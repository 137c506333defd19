// The license gate on virtual time, with a scripted server and disk.
#include "Vantrel/licensing/LicenseManager.h"

#include "tests/server/TestLicense.h"
#include "tests/simulated/MemoryFileSystem.h"
#include "tests/simulated/SimulatedHttp.h"
#include "tests/simulated/SimulatedTime.h"

#include <gmock/gmock.h>

#include <set>

using namespace vantrel;
using namespace ::testing;
using Kind = Entitlement::Kind;
namespace TestLicense = vantrel::testing::TestLicense;

namespace {

constexpr const char* licenseFile = "/support/Vantrel/license.json";
constexpr const char* copyFile = "/config/vantrel/license-record.json";
constexpr double day = 86'400;

struct Machine final : MachineIdentity {
    std::optional<std::string> identity = std::string(32, '1');
    std::optional<std::string> machineID() override { return identity; }
};

class LicenseGateTest : public Test {
protected:
    LicenseGateTest() {
        http.server = [this](const HttpRequest& request) { return answer(request); };
        start();
    }

    void start(const std::string& publicKey = TestLicense::publicKey()) {
        gate.reset();
        gate = std::make_unique<LicenseManager>(
            LicenseManager::Options{.supportDirectory = "/support/Vantrel",
                                    .recordCopy = copyFile,
                                    .apiServer = "https://api.test",
                                    .publicKey = publicKey,
                                    .log = [this](const std::string& message) { log.push_back(message); }},
            files, time, time, http, machine);
        gate->setChangeHandler([this] { ++changes; });
        gate->start();
    }

    // A vendor's server that gives every activation an id of its own and renews what was not given back.
    HttpResult answer(const HttpRequest& request) {
        const auto body = nlohmann::json::parse(request.body);
        if (request.url == "https://api.test/activate" && body.at("key") == "GOOD-KEY") {
            return HttpResponse{200, TestLicense::signedLease(body, serversTime(),
                                                              "license-" + std::to_string(++activations))};
        }
        if (request.url == "https://api.test/renew") {
            return givenBack.contains(body.at("id"))
                       ? HttpResponse{410, ""}
                       : HttpResponse{200, TestLicense::signedLease(body, serversTime(), body.at("id"))};
        }
        if (request.url == "https://api.test/deactivate") {
            givenBack.insert(body.at("id"));
            return HttpResponse{204, ""};
        }
        return HttpResponse{404, ""};
    }
    Date serversTime() {
        return dateAfter(dateFromIso8601("2026-03-02T00:00:00Z").value(), time.monotonicSeconds());
    }

    // Stores "done" or the error.
    static LicenseGate::Done into(std::string& outcome) {
        return [&outcome](const auto& result) { outcome = result ? "done" : result.error(); };
    }
    std::string activate(const std::string& key = "GOOD-KEY") {
        std::string outcome = "nothing";
        gate->activate(key, into(outcome));
        time.runFor(5);
        return outcome;
    }
    std::string deactivate() {
        std::string outcome = "nothing";
        gate->deactivate(into(outcome));
        time.runFor(5);
        return outcome;
    }
    [[nodiscard]] Kind kind() const { return gate->entitlement().kind; }

    simulated::SimulatedTime time;
    simulated::MemoryFileSystem files;
    simulated::SimulatedHttp http{time};
    Machine machine;
    int activations = 0;
    std::set<std::string> givenBack;
    int changes = 0;
    std::vector<std::string> log;
    std::unique_ptr<LicenseManager> gate;
};

} // namespace

TEST_F(LicenseGateTest, TheTrialEndsAndReportsItOnce) {
    EXPECT_EQ(gate->entitlement().trialDaysLeft, 14);
    time.runFor(14 * day - 1);
    EXPECT_EQ(kind(), Kind::trial);
    changes = 0;
    time.runFor(3);
    EXPECT_EQ(kind(), Kind::trialOver);
    EXPECT_EQ(changes, 1);
    start();
    EXPECT_EQ(kind(), Kind::trialOver);
}

TEST_F(LicenseGateTest, TheTrialEndsEvenWhenTheClockIsSetBack) {
    for (int i = 0; i < 15; ++i) {
        time.runFor(day);
        time.setWallClock(dateFromIso8601("2026-03-02T00:00:00Z").value());
        start();
    }
    EXPECT_EQ(kind(), Kind::trialOver);
}

TEST_F(LicenseGateTest, ActivatesAKeyOnceAndRenewsItsLease) {
    time.runFor(20 * day);
    EXPECT_EQ(activate(" GOOD-KEY\n"), "done");
    EXPECT_EQ(kind(), Kind::licensed);
    const auto& request = http.requests.at(0);
    EXPECT_EQ(nlohmann::json::parse(request.body).at("key"), "GOOD-KEY");
    EXPECT_THAT(request.body, Not(HasSubstr(*machine.identity))) << "the computer's identity stays here";
    EXPECT_THAT(log, Each(Not(HasSubstr("GOOD-KEY"))));

    changes = 0;
    time.runFor(400 * day);
    start();
    EXPECT_EQ(kind(), Kind::licensed);
    EXPECT_THAT(http.requests.size(), AllOf(Ge(45U), Le(60U))) << "about every eight days";
    EXPECT_EQ(activations, 1);
}

TEST_F(LicenseGateTest, ACopiedBackPairEndsWithItsLease) {
    ASSERT_EQ(activate(), "done");
    const auto license = files.content(licenseFile).value();
    const auto copy = files.content(copyFile).value();
    ASSERT_EQ(deactivate(), "done");
    const auto putBack = [&] {
        files.put(licenseFile, license);
        files.put(copyFile, copy);
        start();
    };
    putBack();
    time.runFor(10 * day);
    EXPECT_THAT(gate->entitlement().reason,
                HasSubstr("ends on 2026-04-01: the vendor's server no longer renews it"));
    EXPECT_FALSE(files.remove(licenseFile));
    files.put(licenseFile, license);
    start();
    time.runFor(20 * day);
    EXPECT_EQ(kind(), Kind::refused) << "the lease has ended";
    putBack();
    time.runFor(60);
    EXPECT_EQ(kind(), Kind::refused);

    http.server = {};
    putBack();
    EXPECT_EQ(kind(), Kind::licensed) << "unknown while the server is unreachable";
    time.runFor(60 * day);
    EXPECT_EQ(kind(), Kind::refused);
}

TEST_F(LicenseGateTest, SurvivesMonthsWithoutAServerAndRecoversWithIt) {
    ASSERT_EQ(activate(), "done");
    const auto asked = http.requests.size();
    http.server = [](const HttpRequest&) { return HttpResponse{404, "<html>For sale</html>"}; };
    time.runFor(90 * day - 60);
    EXPECT_THAT(gate->entitlement().reason, HasSubstr("before 2026-05-31"));
    EXPECT_EQ(kind(), Kind::licensed);
    EXPECT_LT(http.requests.size() - asked, 100U) << "about once a day";
    time.runFor(120);
    EXPECT_EQ(kind(), Kind::refused);
    http.server = [this](const HttpRequest& request) { return answer(request); };
    time.runFor(3600);
    EXPECT_EQ(kind(), Kind::licensed);
}

TEST_F(LicenseGateTest, AClockSetAheadDoesNoLastingHarm) {
    ASSERT_EQ(activate(), "done");
    time.setWallClock(dateFromIso8601("2040-01-01T00:00:00Z").value());
    start();
    time.runFor(60);
    EXPECT_EQ(kind(), Kind::refused);
    EXPECT_THAT(log.back(), HasSubstr("set it right"));
    time.setWallClock(serversTime());
    start();
    time.runFor(60);
    EXPECT_EQ(kind(), Kind::licensed);
}

TEST_F(LicenseGateTest, DeactivatesDuringARenewalAndKeepsTheLicenseWhenThatFails) {
    ASSERT_EQ(activate(), "done");
    http.server = [](const HttpRequest&) { return HttpResponse{500, ""}; };
    EXPECT_THAT(deactivate(), HasSubstr("(500)"));
    EXPECT_EQ(kind(), Kind::licensed);
    http.server = [this](const HttpRequest& request) { return answer(request); };
    http.answerSeconds = 50;
    time.runFor(8 * day + 60);
    std::string outcome;
    gate->deactivate(into(outcome));
    time.runFor(60);
    EXPECT_EQ(outcome, "done");
    EXPECT_EQ(kind(), Kind::trial);
}

TEST_F(LicenseGateTest, AServerErrorChangesNothing) {
    const auto before = files.content(licenseFile);
    const auto stays = [&](const std::string& outcome, const char* part) {
        EXPECT_THAT(outcome, HasSubstr(part));
        EXPECT_EQ(files.content(licenseFile), before);
        EXPECT_EQ(changes, 1) << "told of a change";
    };
    stays(activate("BAD-KEY"), "The server does not accept this key (404).");
    stays(activate("two words"), "That is not a license key.");
    stays(deactivate(), "There is no license on this computer.");
    http.server = {};
    stays(activate(), "The server cannot be reached. Nothing was changed.");
    const std::string strange = TestLicense::signedLicense(std::string(64, 'b'));
    for (const auto& [body, part] : {std::pair<std::string, const char*>{"garbage", "is not a license"},
                                     {strange, "for another computer"},
                                     {TestLicense::document("{}", 'x').dump(), "not signed by the vendor"}}) {
        http.server = [&](const HttpRequest&) { return HttpResponse{200, body}; };
        stays(activate(), part);
    }
    machine.identity.reset();
    files.put(licenseFile, "");
    start();
    EXPECT_THAT(activate(), HasSubstr("no machine ID"));
}

TEST_F(LicenseGateTest, AllowsOneRequestAtATime) {
    std::string second;
    gate->activate("GOOD-KEY", [](const auto&) {});
    gate->activate("GOOD-KEY", into(second));
    EXPECT_THAT(second, HasSubstr("already"));
    time.runFor(5);
    EXPECT_EQ(kind(), Kind::licensed);
    EXPECT_EQ(activate(), "done") << "again is harmless";
}

TEST_F(LicenseGateTest, RemovingRecordsStartsNoNewTrial) {
    time.runFor(10 * day);
    for (const char* const gone : {licenseFile, copyFile}) {
        EXPECT_FALSE(files.remove(gone));
        start();
        EXPECT_EQ(gate->entitlement().trialDaysLeft, 4);
    }
    files.put("/support/Vantrel/usage.json",
              R"({"restores":1,"windowsVantrel":1,"sceneSwitches":0,"stashUses":0,"undoUses":0,"deskIDs":[],)"
              R"("firstRecordedAt":"2026-03-05T00:00:00Z"})");
    EXPECT_FALSE(files.remove(licenseFile) || files.remove(copyFile));
    start();
    EXPECT_EQ(gate->entitlement().trialDaysLeft, 7);
}

TEST_F(LicenseGateTest, ReportsAFullDiskAndKeepsTheLicense) {
    ASSERT_EQ(activate(), "done");
    const auto before = files.content(licenseFile);
    files.failAll(simulated::MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_THAT(activate(), HasSubstr("could not be written to disk"));
    EXPECT_EQ(kind(), Kind::licensed);
    EXPECT_EQ(files.content(licenseFile), before);
    files.stopFailing();
    files.failReading(licenseFile, std::errc::permission_denied);
    start();
    EXPECT_EQ(kind(), Kind::refused);
    files.stopFailing();
    EXPECT_EQ(files.content(licenseFile), before) << "what cannot be read is not written over";
    time.runFor(60);
    EXPECT_EQ(kind(), Kind::licensed) << "as soon as it can be read again";
}

TEST_F(LicenseGateTest, ABuildWithoutAVendorNeedsNoLicense) {
    for (const auto& file : files.files()) {
        EXPECT_FALSE(files.remove(file));
    }
    start("");
    EXPECT_EQ(kind(), Kind::notNeeded);
    EXPECT_TRUE(gate->entitlement().isEntitled());
    EXPECT_THAT(activate(), HasSubstr("needs no license"));
    time.runFor(400 * day);
    EXPECT_THAT(files.files(), IsEmpty());
    EXPECT_THAT(http.requests, IsEmpty());
}

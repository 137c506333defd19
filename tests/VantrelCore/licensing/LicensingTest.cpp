// Trial, license and lease as time passes, whatever happens to their files.
#include "VantrelCore/licensing/LicenseAcceptance.h"
#include "VantrelCore/licensing/LicenseDecision.h"
#include "VantrelCore/licensing/LicenseLease.h"
#include "tests/server/TestLicense.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace ::testing;
using namespace std::chrono_literals;
using Kind = Entitlement::Kind;
using std::chrono::days;

namespace TestLicense = vantrel::testing::TestLicense;

const std::string machine(64, 'a');
constexpr Date day0{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2}};

LicenseRecord record(Date started, Date seen) {
    return {.trialStartedAt = started, .latestSeen = seen};
}

LicenseRecord licensed(const std::string& license = TestLicense::signedLicense(machine)) {
    auto result = record(day0, day0);
    result.document = LicenseDocuments::parse(license).value();
    return result;
}

struct Now {
    LicenseDecision::FileReading main{};
    LicenseDecision::FileReading copy{};
    Date now = day0;
    std::optional<Date> earliest{};
    std::string here = machine;
};

struct Decided {
    LicenseDecision::Start start;
    Entitlement entitlement;
};

Decided decided(const Now& now) {
    auto start = LicenseDecision::start({.main = now.main,
                                         .copy = now.copy,
                                         .earliestUse = [&] { return now.earliest; },
                                         .machine = now.here,
                                         .key = LicenseDocuments::publicKey(TestLicense::publicKey()).value(),
                                         .now = now.now});
    auto entitlement = LicenseDecision::entitlement(start.record, start.license, now.now);
    return {std::move(start), std::move(entitlement)};
}

LicenseDecision::FileReading broken(LicenseProblem problem) {
    return std::unexpected(problem);
}

TEST(LicenseDecision, ATrialLastsFourteenDays) {
    const auto first = decided({});
    EXPECT_EQ(first.start.record, record(day0, day0));
    const std::tuple<std::chrono::seconds, Kind, std::optional<std::int64_t>> rows[] = {
        {0s, Kind::trial, 14},           {1s, Kind::trial, 14},           {days{1}, Kind::trial, 13},
        {days{13} + 1s, Kind::trial, 1}, {days{14} - 1s, Kind::trial, 1}, {days{14}, Kind::trialOver, {}},
        {days{400}, Kind::trialOver, {}}};
    for (const auto& [passed, kind, daysLeft] : rows) {
        const auto entitlement = LicenseDecision::entitlement(first.start.record, {}, day0 + passed);
        EXPECT_EQ(entitlement.kind, kind) << passed.count();
        EXPECT_EQ(entitlement.trialDaysLeft, daysLeft) << passed.count();
        EXPECT_EQ(entitlement.trialEndsAt, day0 + days{14});
    }
}

TEST(LicenseDecision, NeitherTheClockNorMissingFilesExtendTheTrial) {
    const auto fresh = record(day0, day0);
    const auto old = record(day0 - days{13}, day0);
    const std::tuple<const char*, Now, std::optional<std::int64_t>> rows[] = {
        {"clock set back", {.main = record(day0, day0 + days{10}), .now = day0 - days{300}}, 4},
        {"license.json removed", {.copy = old}, 1},
        {"an old one put back", {.main = fresh, .copy = old}, 1},
        {"the copy damaged", {.main = old, .copy = broken(LicenseProblem::damaged)}, 1},
        {"both removed, counts from the oldest use", {.earliest = day0 - days{10}}, 4},
        {"both removed, over by the oldest use", {.earliest = day0 - days{20}}, {}},
        {"an oldest use by a clock that was ahead", {.earliest = day0 + days{20}}, 14},
        {"the record says more than the oldest use", {.main = fresh, .earliest = day0 - days{20}}, 14},
    };
    for (const auto& [what, now, daysLeft] : rows) {
        const auto found = decided(now);
        EXPECT_EQ(found.entitlement.kind, daysLeft ? Kind::trial : Kind::trialOver) << what;
        EXPECT_EQ(found.entitlement.trialDaysLeft, daysLeft) << what;
    }
    EXPECT_EQ(decided(std::get<1>(rows[0])).start.record.latestSeen, day0 + days{10});
}

TEST(LicenseDecision, AForeignFileEntitlesToNothingAndIsKept) {
    using enum LicenseProblem;
    for (const auto problem : {damaged, changed}) {
        for (const auto& copy :
             {LicenseDecision::FileReading{}, LicenseDecision::FileReading{record(day0, day0)}}) {
            const auto found = decided({.main = broken(problem), .copy = copy});
            EXPECT_EQ(found.entitlement.kind, Kind::refused);
            EXPECT_THAT(found.entitlement.reason, StartsWith(LicenseProblems::sentence(problem)));
            EXPECT_TRUE(found.start.keepsMainAside);
            // And so at the next start, when the file has been written anew.
            EXPECT_EQ(decided({.main = found.start.record, .copy = copy}).entitlement.kind, Kind::refused);
        }
    }
    const auto both = decided({.copy = broken(changed)});
    EXPECT_EQ(both.entitlement.kind, Kind::refused);
    EXPECT_TRUE(both.start.keepsCopyAside);
    const auto closed = decided({.main = broken(unreadable), .copy = record(day0, day0)});
    EXPECT_EQ(closed.entitlement.kind, Kind::refused);
    EXPECT_FALSE(closed.start.keepsMainAside || closed.start.mayWriteMain);
}

TEST(LicenseDecision, ChecksTheLicenseAtEveryStart) {
    const auto holds = decided({.main = licensed(), .now = day0 + days{400}});
    EXPECT_EQ(holds.entitlement.kind, Kind::licensed);
    EXPECT_EQ(holds.entitlement.license.value().plan, "personal");

    auto givenBack = record(day0, day0);
    givenBack.deactivated = {"license-1"};
    const std::tuple<const char*, Now, LicenseProblem> rows[] = {
        {"replayed after deactivation", {.main = licensed(), .copy = givenBack}, LicenseProblem::deactivated},
        {"another computer",
         {.main = licensed(), .here = std::string(64, 'b')},
         LicenseProblem::otherMachine},
        {"a computer without identity", {.main = licensed(), .here = ""}, LicenseProblem::otherMachine},
        {"another vendor",
         {.main = licensed(TestLicense::document(TestLicense::payload(machine).dump(), 'x').dump())},
         LicenseProblem::badSignature}};
    for (const auto& [why, now, problem] : rows) {
        const auto found = decided(now);
        EXPECT_EQ(found.entitlement.kind, Kind::refused) << why;
        EXPECT_THAT(found.entitlement.reason, StartsWith(LicenseProblems::sentence(problem))) << why;
        EXPECT_TRUE(found.start.keepsMainAside) << why;
        EXPECT_EQ(found.start.record.document, std::nullopt) << why;
    }
}

TEST(LicenseDecision, AnExpiredLicenseIsKeptButRefused) {
    auto payload = TestLicense::payload(machine);
    payload["expiresAt"] = "2026-04-01T00:00:00Z";
    auto stored = licensed(TestLicense::document(payload.dump()).dump());
    EXPECT_EQ(decided({.main = stored}).entitlement.kind, Kind::licensed);
    EXPECT_EQ(decided({.main = stored}).entitlement.changesAt, day0 + days{30});
    stored.latestSeen = day0 + days{31};
    const auto expired = decided({.main = stored});
    EXPECT_EQ(expired.entitlement.kind, Kind::refused);
    EXPECT_EQ(expired.entitlement.reason, "The license expired on 2026-04-01.");
    EXPECT_FALSE(expired.start.keepsMainAside);
    EXPECT_TRUE(expired.start.record.document);
}

TEST(LicenseRecord, DetectsEditsAndAnotherComputer) {
    auto stored = licensed();
    stored.deactivated = {"license-0"};
    stored.problem = LicenseProblem::otherMachine;
    const std::string text = LicenseRecords::encode(stored, machine);
    EXPECT_EQ(LicenseRecords::decode(text, machine), stored);
    EXPECT_EQ(LicenseRecords::decode(text, std::string(64, 'b')), std::unexpected(LicenseProblem::changed));
    auto edited = text;
    edited.replace(edited.find("2026-03-02"), 10, "2026-03-12");
    EXPECT_EQ(LicenseRecords::decode(edited, machine), std::unexpected(LicenseProblem::changed));
    for (const std::string& other : {std::string(), std::string("{}"), text.substr(0, text.size() / 2),
                                     text + "x", std::string("{\"version\":1,\"seal\":\"\"}")}) {
        EXPECT_EQ(LicenseRecords::decode(other, machine), std::unexpected(LicenseProblem::damaged)) << other;
    }
}

namespace TestLicense = vantrel::testing::TestLicense;

const auto key = LicenseDocuments::publicKey(TestLicense::publicKey()).value();

std::string lease(Date issuedAt, const std::string& nonce = "now", const std::string& id = "license-1") {
    return TestLicense::signedLease({{"machine", machine}, {"nonce", nonce}}, issuedAt, id);
}

License licenseOf(const std::string& text) {
    return LicenseDocuments::verify(LicenseDocuments::parse(text).value(), key).value();
}

TEST(LicenseLease, OutlivesAnUnreachableServerButNotAWithdrawal) {
    const auto leased = licenseOf(lease(day0));
    const auto old = licenseOf(TestLicense::signedLicense(machine));
    const struct {
        const License& license;
        bool isWithdrawn;
        days passed;
        Kind kind;
        std::optional<Date> changesAt;
    } rows[] = {
        {leased, false, days{0}, Kind::licensed, day0 + days{30}},
        {leased, false, days{30}, Kind::licensed, day0 + days{90}},
        {leased, false, days{90}, Kind::refused, {}},
        {leased, true, days{29}, Kind::licensed, day0 + days{30}},
        {leased, true, days{30}, Kind::refused, {}},
        {old, false, days{4000}, Kind::licensed, {}},
        {old, true, days{4000}, Kind::refused, {}},
    };
    for (const auto& row : rows) {
        const LicenseRecord record{.trialStartedAt = day0,
                                   .latestSeen = day0,
                                   .withdrawn = row.isWithdrawn ? std::optional("license-1") : std::nullopt};
        const auto found = LicenseDecision::entitlement(record, row.license, day0 + row.passed);
        EXPECT_EQ(found.kind, row.kind) << row.passed.count() << found.reason;
        EXPECT_EQ(found.changesAt, row.changesAt) << row.passed.count() << found.reason;
    }
    EXPECT_FALSE(LicenseLease::isDue(leased, day0 + days{7}));
    EXPECT_TRUE(LicenseLease::isDue(leased, day0 + days{8}));
    EXPECT_TRUE(LicenseLease::isDue(old, day0));
}

TEST(LicenseLease, RenewsOnlyByAReplyToThisRequestAndWithdrawsOnlyBy410) {
    const auto held = licenseOf(lease(day0));
    const Date now = day0 + days{10};
    LicenseRecord record{.trialStartedAt = day0, .latestSeen = now};
    record.document = LicenseDocuments::parse(lease(day0)).value();
    const auto ok = [](const std::string& body) { return HttpResult(HttpResponse{200, body}); };
    auto elsewhere = TestLicense::leasedPayload(std::string(64, 'b'), now, "now");
    auto noNonce = TestLicense::leasedPayload(machine, day0 - days{1}, "");
    noNonce.erase("nonce");
    auto noNonceLater = TestLicense::leasedPayload(machine, now, "");
    noNonceLater.erase("nonce");
    const std::tuple<HttpResult, bool, const char*> rows[] = {
        {ok(lease(now)), true, "renewed until 2026-04-11"},
        {ok(lease(day0 - days{5})), true, "renewed until 2026-03-27"},
        {ok(TestLicense::document(noNonceLater.dump()).dump()), true, "renewed until 2026-04-11"},
        {ok(TestLicense::document(noNonce.dump()).dump()), false, "older than"},
        {ok(lease(now, "of another day")), false, "another request"},
        {ok(lease(now, "now", "license-2")), false, "not the one"},
        {ok(lease(day0 - days{100})), false, "ended long ago"},
        {ok(TestLicense::document(elsewhere.dump()).dump()), false, "another computer"},
        {ok(TestLicense::document("{}", 'x').dump()), false, "not signed by the vendor"},
        {ok("OK"), false, "not a license"},
        {HttpResponse{403, ""}, false, "(403)"},
        {HttpResponse{404, ""}, false, "(404)"},
        {HttpResponse{500, ""}, false, "(500)"},
        {std::unexpected(HttpFailure{HttpFailure::Kind::untrusted, "Not trusted."}), false, "Not trusted."},
    };
    const LicenseAcceptance::Request request{
        .machine = machine, .key = key, .nonce = "now", .held = held, .now = now};
    for (const auto& [answer, isRenewed, part] : rows) {
        const auto outcome = LicenseAcceptance::renewal(record, answer, request);
        EXPECT_EQ(outcome.isRenewed, isRenewed) << outcome.sentence;
        EXPECT_THAT(outcome.sentence, HasSubstr(part));
        EXPECT_EQ(outcome.record == record && outcome.license == held, !isRenewed) << outcome.sentence;
    }
    const auto withdrawn = LicenseAcceptance::renewal(record, HttpResponse{410, ""}, request);
    EXPECT_EQ(withdrawn.record.withdrawn, "license-1");
    EXPECT_EQ(LicenseAcceptance::renewal(withdrawn.record, ok(lease(now)), request).record.withdrawn,
              std::nullopt);
    EXPECT_EQ(LicenseRecords::merged(record, LicenseRecords::forCopy(withdrawn.record)).withdrawn,
              "license-1");
}

} // namespace
} // namespace vantrel

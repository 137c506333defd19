// Trial and licence as time passes, and whatever becomes of their files.
#include "VantrelCore/licensing/LicenseDecision.h"

#include "tests/server/TestLicense.h"

#include <gmock/gmock.h>

using namespace vantrel;
using namespace ::testing;
using namespace std::chrono_literals;
using Kind = Entitlement::Kind;
namespace TestLicense = vantrel::testing::TestLicense;

namespace {

const std::string machine(64, 'a');
constexpr Date day0{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2}};
using std::chrono::days;

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

} // namespace

TEST(LicenseDecision, ATrialLastsFourteenDaysFromTheFirstStart) {
    const auto first = decided({});
    EXPECT_EQ(first.start.record, record(day0, day0));
    const struct {
        std::chrono::seconds passed;
        Kind kind;
        std::optional<std::int64_t> daysLeft;
    } rows[] = {{0s, Kind::trial, 14},           {1s, Kind::trial, 14},
                {days{1}, Kind::trial, 13},      {days{13} + 1s, Kind::trial, 1},
                {days{14} - 1s, Kind::trial, 1}, {days{14}, Kind::trialOver, {}},
                {days{400}, Kind::trialOver, {}}};
    for (const auto& row : rows) {
        const auto entitlement = LicenseDecision::entitlement(first.start.record, {}, day0 + row.passed);
        EXPECT_EQ(entitlement.kind, row.kind) << row.passed.count();
        EXPECT_EQ(entitlement.trialDaysLeft, row.daysLeft) << row.passed.count();
        EXPECT_EQ(entitlement.trialEndsAt, day0 + days{14});
    }
}

TEST(LicenseDecision, NeitherClocksNorLostFilesLengthenTheTrial) {
    const auto fresh = record(day0, day0);
    const auto old = record(day0 - days{13}, day0);
    const struct {
        const char* what;
        Now now;
        std::optional<std::int64_t> daysLeft;
    } rows[] = {
        {"clock set back", {.main = record(day0, day0 + days{10}), .now = day0 - days{300}}, 4},
        {"license.json removed", {.copy = old}, 1},
        {"an old one put back", {.main = fresh, .copy = old}, 1},
        {"the copy damaged", {.main = old, .copy = broken(LicenseProblem::damaged)}, 1},
        {"both removed, counts from the oldest use", {.earliest = day0 - days{10}}, 4},
        {"both removed, over by the oldest use", {.earliest = day0 - days{20}}, {}},
        {"an oldest use by a clock that was ahead", {.earliest = day0 + days{20}}, 14},
        {"the record says more than the oldest use", {.main = fresh, .earliest = day0 - days{20}}, 14},
    };
    for (const auto& row : rows) {
        const auto found = decided(row.now);
        EXPECT_EQ(found.entitlement.kind, row.daysLeft ? Kind::trial : Kind::trialOver) << row.what;
        EXPECT_EQ(found.entitlement.trialDaysLeft, row.daysLeft) << row.what;
    }
    EXPECT_EQ(decided(rows[0].now).start.record.latestSeen, day0 + days{10});
}

TEST(LicenseDecision, AFileThatIsNotOursEntitlesToNothingAndIsKept) {
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

TEST(LicenseDecision, ALicenseIsCheckedAgainAtEveryStart) {
    const auto holds = decided({.main = licensed(), .now = day0 + days{400}});
    EXPECT_EQ(holds.entitlement.kind, Kind::licensed);
    EXPECT_EQ(holds.entitlement.license.value().plan, "personal");

    auto givenBack = record(day0, day0);
    givenBack.deactivated = {"license-1"};
    const struct {
        const char* why;
        Now now;
        LicenseProblem problem;
    } rows[] = {
        {"replayed after deactivation", {.main = licensed(), .copy = givenBack}, LicenseProblem::deactivated},
        {"another computer",
         {.main = licensed(), .here = std::string(64, 'b')},
         LicenseProblem::otherMachine},
        {"a computer without identity", {.main = licensed(), .here = ""}, LicenseProblem::otherMachine},
        {"another vendor",
         {.main = licensed(TestLicense::document(TestLicense::payload(machine).dump(), 'x').dump())},
         LicenseProblem::badSignature}};
    for (const auto& row : rows) {
        const auto found = decided(row.now);
        EXPECT_EQ(found.entitlement.kind, Kind::refused) << row.why;
        EXPECT_THAT(found.entitlement.reason, StartsWith(LicenseProblems::sentence(row.problem))) << row.why;
        EXPECT_TRUE(found.start.keepsMainAside) << row.why;
        EXPECT_EQ(found.start.record.document, std::nullopt) << row.why;
    }
}

TEST(LicenseDecision, AnExpiredLicenseStaysButEntitlesToNothingWhateverTheClockSays) {
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

TEST(LicenseRecord, ItsFileTellsEveryChangeAndEveryMove) {
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

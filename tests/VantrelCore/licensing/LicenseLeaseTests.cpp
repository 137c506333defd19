// What a lease allows as time passes, and which answers renew it.
#include "VantrelCore/licensing/LicenseAcceptance.h"
#include "VantrelCore/licensing/LicenseDecision.h"
#include "VantrelCore/licensing/LicenseLease.h"

#include "tests/server/TestLicense.h"

#include <gmock/gmock.h>

using namespace vantrel;
using namespace ::testing;
using std::chrono::days;
using Kind = Entitlement::Kind;
namespace TestLicense = vantrel::testing::TestLicense;

namespace {

const std::string machine(64, 'a');
constexpr Date day0{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2}};
const auto key = LicenseDocuments::publicKey(TestLicense::publicKey()).value();

std::string lease(Date issuedAt, const std::string& nonce = "now", const std::string& id = "license-1") {
    return TestLicense::signedLease({{"machine", machine}, {"nonce", nonce}}, issuedAt, id);
}

License licenseOf(const std::string& text) {
    return LicenseDocuments::verify(LicenseDocuments::parse(text).value(), key).value();
}

} // namespace

TEST(LicenseLease, EndsLateWithoutTheServerAndOnTimeWhenTheServerHasWithdrawnIt) {
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

TEST(LicenseLease, IsRenewedByAnAnswerToThisRequestOnlyAndWithdrawnBy410Only) {
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
    const struct {
        HttpResult answer;
        bool isRenewed;
        const char* part;
    } rows[] = {
        {ok(lease(now)), true, "renewed until 2026-04-11"},
        {ok(lease(day0 - days{5})), true, "renewed until 2026-03-27"},
        {ok(TestLicense::document(noNonceLater.dump()).dump()), true, "renewed until 2026-04-11"},
        {ok(TestLicense::document(noNonce.dump()).dump()), false, "older than"},
        {ok(lease(now, "of another day")), false, "another request"},
        {ok(lease(now, "now", "license-2")), false, "not the one"},
        {ok(lease(day0 - days{100})), false, "ended long ago"},
        {ok(TestLicense::document(elsewhere.dump()).dump()), false, "another computer"},
        {ok(TestLicense::document("{}", 'x').dump()), false, "not signed by the vendor"},
        {ok("OK"), false, "no license"},
        {HttpResponse{403, ""}, false, "(403)"},
        {HttpResponse{404, ""}, false, "(404)"},
        {HttpResponse{500, ""}, false, "(500)"},
        {std::unexpected(HttpFailure{HttpFailure::Kind::untrusted, "Not trusted."}), false, "Not trusted."},
    };
    const LicenseAcceptance::Request request{
        .machine = machine, .key = key, .nonce = "now", .held = held, .now = now};
    for (const auto& row : rows) {
        const auto outcome = LicenseAcceptance::renewal(record, row.answer, request);
        EXPECT_EQ(outcome.isRenewed, row.isRenewed) << outcome.sentence;
        EXPECT_THAT(outcome.sentence, HasSubstr(row.part));
        EXPECT_EQ(outcome.record == record && outcome.license == held, !row.isRenewed) << outcome.sentence;
    }
    const auto withdrawn = LicenseAcceptance::renewal(record, HttpResponse{410, ""}, request);
    EXPECT_EQ(withdrawn.record.withdrawn, "license-1");
    EXPECT_EQ(LicenseAcceptance::renewal(withdrawn.record, ok(lease(now)), request).record.withdrawn,
              std::nullopt);
    EXPECT_EQ(LicenseRecords::merged(record, LicenseRecords::forCopy(withdrawn.record)).withdrawn,
              "license-1");
}

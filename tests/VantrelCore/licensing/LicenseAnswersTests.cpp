// What a server may say, and what the user is told of it.
#include "VantrelCore/licensing/LicenseAnswers.h"

#include "tests/server/TestLicense.h"

#include <gmock/gmock.h>

using namespace vantrel;
using namespace ::testing;

namespace {

std::string sentenceFor(int status, const std::string& body) {
    const auto answer = LicenseAnswers::activated(HttpResponse{status, body});
    return answer ? "licensed" : answer.error();
}

} // namespace

TEST(LicenseAnswers, AcceptOnlyALicenseDocument) {
    EXPECT_EQ(sentenceFor(200, vantrel::testing::TestLicense::signedLicense("m")), "licensed");
    for (const char* const body : {"", "{}", "[]", "null", "OK", "<html>", R"({"algorithm":"ed25519"})"}) {
        EXPECT_EQ(sentenceFor(200, body), "The server's reply is not a license. Nothing was changed.")
            << body;
    }
    EXPECT_THAT(sentenceFor(302, vantrel::testing::TestLicense::signedLicense("m")), HasSubstr("(302)"));
    EXPECT_THAT(sentenceFor(500, R"({"error":"SELECT failed"})"),
                StartsWith("The server has a problem (500)."));
    EXPECT_EQ(
        LicenseAnswers::activated(std::unexpected(HttpFailure{HttpFailure::Kind::timedOut, "Too late."}))
            .error(),
        "Too late. Nothing was changed.");
}

TEST(LicenseAnswers, ShowTheServersMessageWhenHarmless) {
    EXPECT_EQ(sentenceFor(409, R"({"error":"This key is in use on three computers."})"),
              "This key is in use on three computers.");
    for (const std::string& body :
         std::vector<std::string>{"no", R"({"error":""})", R"({"error":7})", R"({"error":"\u001b[2Jgone"})",
                                  R"({"error":"\u009b2J"})", R"({"error":"two\nlines"})",
                                  R"({"error":")" + std::string(201, 'x') + "\"}"}) {
        EXPECT_EQ(sentenceFor(403, body), "The server does not accept this key (403).") << body;
    }
}

TEST(LicenseAnswers, TreatAnUnknownLicenseAsDeactivated) {
    for (const int status : {200, 204, 410}) {
        EXPECT_TRUE(LicenseAnswers::deactivated(HttpResponse{status, ""})) << status;
    }
    for (const int status : {0, 302, 404, 500}) {
        EXPECT_FALSE(LicenseAnswers::deactivated(HttpResponse{status, ""})) << status;
    }
}

TEST(LicenseAnswers, TrimAPastedKey) {
    EXPECT_EQ(LicenseAnswers::key(" \tABCD-1234\r\n"), "ABCD-1234");
    for (const std::string& wrong : {std::string(), std::string("  "), std::string("two words"),
                                     std::string("a\x1b"), std::string("käse"), std::string(129, 'a')}) {
        EXPECT_EQ(LicenseAnswers::key(wrong), std::nullopt) << wrong;
    }
}

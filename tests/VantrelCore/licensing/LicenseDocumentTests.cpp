// Whoever cannot sign for the vendor gets no licence accepted, whatever is tried.
#include "VantrelCore/licensing/LicenseDocument.h"

#include "tests/server/TestLicense.h"

#include <gmock/gmock.h>

#include <functional>

using namespace vantrel;
namespace TestLicense = vantrel::testing::TestLicense;

namespace {

const std::string machine(64, 'a');
const auto key = LicenseDocuments::publicKey(TestLicense::publicKey()).value();
using Json = nlohmann::json;

std::string signedWith(const std::function<void(Json&)>& change) {
    auto payload = TestLicense::payload(machine);
    change(payload);
    return TestLicense::document(payload.dump()).dump();
}

const Json good = TestLicense::document(TestLicense::payload(machine).dump());

std::string with(const char* part, const std::function<std::string(std::string)>& change) {
    auto document = good;
    document[part] = change(document[part].get<std::string>());
    return document.dump();
}

// None when all is well.
std::optional<LicenseProblem> problemOf(const std::string& text,
                                        const std::vector<std::string>& deactivated = {}) {
    const auto document = LicenseDocuments::parse(text);
    if (!document) {
        return document.error();
    }
    const auto license = LicenseDocuments::verify(*document, key);
    return license ? LicenseDocuments::problemWith(*license, machine, deactivated)
                   : std::optional(license.error());
}

std::string inserted(std::string text, const std::string& more) {
    return text.insert(1, more);
}

} // namespace

TEST(LicenseDocument, AcceptsWhatTheVendorSignedForThisComputer) {
    EXPECT_EQ(problemOf(" " + good.dump(4) + "\n"), std::nullopt);
    const auto document = LicenseDocuments::parse(signedWith([](Json& payload) {
        payload["expiresAt"] = "2027-01-01T00:00:00Z";
        payload["holder"] = "Ada";
        payload["seats"] = 3;
    }));
    const auto license = LicenseDocuments::verify(document.value(), key);
    ASSERT_TRUE(license);
    EXPECT_EQ(license->holder, "Ada");
    EXPECT_EQ(iso8601Text(license->expiresAt.value()), "2027-01-01T00:00:00Z");
}

TEST(LicenseDocument, RejectsEveryForgery) {
    using enum LicenseProblem;
    const auto bits = [](std::string text) {
        // Other bits in the last character that stand for no byte.
        text[text.size() - 3] = static_cast<char>(text[text.size() - 3] + 1);
        return text;
    };
    auto edited = TestLicense::payload(machine);
    edited["expiresAt"] = "2099-01-01T00:00:00Z";
    const std::string text = good.dump();
    const std::tuple<const char*, std::string, LicenseProblem> forgeries[] = {
        {"another vendor's key", TestLicense::document(TestLicense::payload(machine).dump(), 'x').dump(),
         badSignature},
        {"another computer's licence", TestLicense::signedLicense(std::string(64, 'b')), otherMachine},
        {"no computer", signedWith([](Json& payload) { payload["machine"] = ""; }), otherMachine},
        {"another program's licence", signedWith([](Json& payload) { payload["product"] = "other"; }),
         otherProduct},
        {"dates edited", with("payload", [&](auto) { return TestLicense::base64(edited.dump()); }),
         badSignature},
        {"algorithm in capitals", with("algorithm", [](auto) { return "Ed25519"; }), unknownAlgorithm},
        {"no algorithm", with("algorithm", [](auto) { return ""; }), unknownAlgorithm},
        {"signature empty", with("signature", [](auto) { return ""; }), badSignature},
        {"signature cut", with("signature", [](auto s) { return s.substr(0, 84) + "=="; }), badSignature},
        {"signature with more", with("signature", [](auto s) { return s.substr(0, 86) + "A="; }),
         badSignature},
        {"signature spelt otherwise", with("signature", bits), badSignature},
        {"payload with a line end", with("payload", [](auto s) { return s + "\n"; }), badSignature},
        {"something behind", text + "{}", malformed},
        {"a key twice", inserted(text, R"("algorithm":"none",)"), malformed},
        {"a key twice, escaped", inserted(text, R"("\u0061lgorithm":"none",)"), malformed},
        {"one key more", inserted(text, R"("key":"…",)"), malformed},
        {"a comment", inserted(text, "/**/"), malformed},
        {"another type", inserted(R"({"payload":"","signature":""})", R"("algorithm":1,)"), malformed},
        {"a list", "[" + text + "]", malformed},
        {"nothing", "", malformed},
        {"nested deep", std::string(8000, '['), malformed},
        {"no end", text + std::string(LicenseDocument::largest, ' '), malformed},
        // What the vendor signed, but is no licence.
        {"payload is no JSON", TestLicense::document("license").dump(), malformed},
        {"payload names a computer twice",
         TestLicense::document(
             inserted(TestLicense::payload(std::string(64, 'b')).dump(), "\"machine\":\"" + machine + "\","))
             .dump(),
         malformed},
        {"payload without a date", signedWith([](Json& payload) { payload.erase("issuedAt"); }), malformed},
        {"payload with no date", signedWith([](Json& payload) { payload["expiresAt"] = "soon"; }), malformed},
    };
    for (const auto& [attempt, forged, problem] : forgeries) {
        EXPECT_EQ(problemOf(forged), problem) << attempt;
    }
    EXPECT_EQ(problemOf(text, {"license-0", "license-1"}), deactivated);
}

TEST(LicenseDocument, RejectsMalformedPublicKeys) {
    const std::string whole = TestLicense::publicKey();
    for (const auto& wrong : {std::string(), whole.substr(2), whole + "00", whole.substr(1) + "g"}) {
        EXPECT_FALSE(LicenseDocuments::publicKey(wrong)) << wrong;
    }
}

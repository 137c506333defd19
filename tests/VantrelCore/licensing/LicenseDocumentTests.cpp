// Whoever cannot sign for the vendor gets no licence accepted, whatever is tried.
#include "VantrelCore/licensing/LicenseDocument.h"

#include "tests/server/TestLicense.h"

#include <gmock/gmock.h>

#include <functional>

using namespace vantrel;
namespace TestLicense = vantrel::testing::TestLicense;

namespace {

const std::string machine(64, 'a');
using Json = nlohmann::json;

Json good() {
    return TestLicense::document(TestLicense::payload(machine).dump());
}

Json signedWith(const std::function<void(Json&)>& change) {
    auto payload = TestLicense::payload(machine);
    change(payload);
    return TestLicense::document(payload.dump());
}

// The payload of a good document exchanged under its signature.
Json forged(const std::function<void(Json&)>& change) {
    auto payload = TestLicense::payload(machine);
    change(payload);
    auto document = good();
    document["payload"] = TestLicense::base64(payload.dump());
    return document;
}

Json with(const char* key, const std::function<std::string(std::string)>& change) {
    auto document = good();
    document[key] = change(document[key].get<std::string>());
    return document;
}

// None when all is well.
std::optional<LicenseProblem> problemOf(const std::string& text,
                                        const std::vector<std::string>& deactivated = {}) {
    const auto document = LicenseDocuments::parse(text);
    if (!document) {
        return document.error();
    }
    const auto license =
        LicenseDocuments::verify(*document, LicenseDocuments::publicKey(TestLicense::publicKey()).value());
    return license ? LicenseDocuments::objection(*license, machine, deactivated)
                   : std::optional(license.error());
}

std::string inserted(std::string text, const std::string& more) {
    return text.insert(1, more);
}

} // namespace

TEST(LicenseDocument, WhatTheVendorSignedForThisComputerIsALicense) {
    EXPECT_EQ(problemOf(good().dump()), std::nullopt);
    EXPECT_EQ(problemOf(" " + good().dump(4) + "\n"), std::nullopt);
    const auto license =
        LicenseDocuments::verify(LicenseDocuments::parse(signedWith([](Json& payload) {
                                                             payload["expiresAt"] = "2027-01-01T00:00:00Z";
                                                             payload["holder"] = "Ada";
                                                             payload["seats"] = 3;
                                                         }).dump())
                                     .value(),
                                 LicenseDocuments::publicKey(TestLicense::publicKey()).value());
    ASSERT_TRUE(license);
    EXPECT_EQ(license->holder, "Ada");
    EXPECT_EQ(iso8601Text(license->expiresAt.value()), "2027-01-01T00:00:00Z");
}

TEST(LicenseDocument, NoForgeryPasses) {
    using enum LicenseProblem;
    const auto bits = [](std::string text) {
        // Other bits in the last character that stand for no byte.
        text[text.size() - 3] = static_cast<char>(text[text.size() - 3] + 1);
        return text;
    };
    const std::string text = good().dump();
    const struct {
        const char* attempt;
        std::string text;
        LicenseProblem problem;
    } forgeries[] = {
        {"another vendor's key", TestLicense::document(TestLicense::payload(machine).dump(), 'x').dump(),
         badSignature},
        {"another computer's licence", TestLicense::signedLicense(std::string(64, 'b')), otherMachine},
        {"no computer", signedWith([](Json& payload) { payload["machine"] = ""; }).dump(), otherMachine},
        {"another program's licence", signedWith([](Json& payload) { payload["product"] = "other"; }).dump(),
         otherProduct},
        {"dates edited", forged([](Json& payload) { payload["expiresAt"] = "2099-01-01T00:00:00Z"; }).dump(),
         badSignature},
        {"computer edited", forged([](Json& payload) { payload["plan"] = "team"; }).dump(), badSignature},
        {"algorithm none", with("algorithm", [](auto) { return "none"; }).dump(), unknownAlgorithm},
        {"algorithm in capitals", with("algorithm", [](auto) { return "Ed25519"; }).dump(), unknownAlgorithm},
        {"algorithm of a shared secret", with("algorithm", [](auto) { return "hmac-sha256"; }).dump(),
         unknownAlgorithm},
        {"no algorithm", with("algorithm", [](auto) { return ""; }).dump(), unknownAlgorithm},
        {"signature empty", with("signature", [](auto) { return ""; }).dump(), badSignature},
        {"signature cut", with("signature", [](auto s) { return s.substr(0, 84) + "=="; }).dump(),
         badSignature},
        {"signature with more", with("signature", [](auto s) { return s.substr(0, 86) + "A="; }).dump(),
         badSignature},
        {"signature of nulls", with("signature", [](auto) { return std::string(86, 'A') + "=="; }).dump(),
         badSignature},
        {"signature spelt otherwise", with("signature", bits).dump(), badSignature},
        {"payload without padding", with("payload", [](auto s) { return s + "="; }).dump(), badSignature},
        {"payload with a line end", with("payload", [](auto s) { return s + "\n"; }).dump(), badSignature},
        {"payload and signature exchanged",
         Json{{"algorithm", "ed25519"}, {"payload", good()["signature"]}, {"signature", good()["payload"]}}
             .dump(),
         badSignature},
        {"something behind", text + "{}", malformed},
        {"two documents", text + "\n" + text, malformed},
        {"a key twice", inserted(text, R"("algorithm":"none",)"), malformed},
        {"a key twice, escaped", inserted(text, R"("\u0061lgorithm":"none",)"), malformed},
        {"one key more", inserted(text, R"("key":"…",)"), malformed},
        {"a comment", inserted(text, "/**/"), malformed},
        {"another type", inserted(Json{{"payload", ""}, {"signature", ""}}.dump(), R"("algorithm":1,)"),
         malformed},
        {"a list", "[" + text + "]", malformed},
        {"nothing", "", malformed},
        {"nested deep", std::string(8000, '['), malformed},
        {"no end", std::string(LicenseDocument::largest + 1, ' '), malformed},
        {"no UTF-8", "{\"algorithm\":\"\xff\"}", malformed},
        // What the vendor signed, but is no licence.
        {"payload is no JSON", TestLicense::document("license").dump(), malformed},
        {"payload names a computer twice",
         TestLicense::document(
             inserted(TestLicense::payload(std::string(64, 'b')).dump(), "\"machine\":\"" + machine + "\","))
             .dump(),
         malformed},
        {"payload has something behind",
         TestLicense::document(TestLicense::payload(machine).dump() + "x").dump(), malformed},
        {"payload without a date", signedWith([](Json& payload) { payload.erase("issuedAt"); }).dump(),
         malformed},
        {"payload with no date", signedWith([](Json& payload) { payload["expiresAt"] = "soon"; }).dump(),
         malformed},
    };
    for (const auto& forgery : forgeries) {
        EXPECT_EQ(problemOf(forgery.text), forgery.problem) << forgery.attempt;
    }
    EXPECT_EQ(problemOf(text, {"license-0", "license-1"}), deactivated);
}

TEST(LicenseDocument, NoSingleByteCanBeChanged) {
    const std::string text = good().dump();
    for (std::size_t i = 0; i < text.size(); ++i) {
        for (const char flip : {'\x01', '\x20'}) {
            auto changed = text;
            changed[i] = static_cast<char>(changed[i] ^ flip);
            EXPECT_NE(problemOf(changed), std::nullopt) << i << ": " << changed[i];
        }
    }
}

TEST(LicenseDocument, OnlyAWholeKeyIsAKey) {
    const std::string key = TestLicense::publicKey();
    EXPECT_TRUE(LicenseDocuments::publicKey(key));
    for (const std::string& wrong : {std::string(), key.substr(2), key + "00", key.substr(1) + "g"}) {
        EXPECT_FALSE(LicenseDocuments::publicKey(wrong)) << wrong;
    }
}

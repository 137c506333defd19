#include "tests/server/TestLicense.h"

#include <algorithm>
#include <array>
#include <sodium.h>

namespace vantrel::testing::TestLicense {

namespace {

struct KeyPair {
    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> open{};
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret{};
};

KeyPair keyPair(char signer) {
    std::array<unsigned char, crypto_sign_SEEDBYTES> seed{};
    std::ranges::fill(seed, static_cast<unsigned char>(signer));
    KeyPair pair;
    crypto_sign_seed_keypair(pair.open.data(), pair.secret.data(), seed.data());
    return pair;
}

const unsigned char* octets(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

} // namespace

std::string publicKey() {
    const auto pair = keyPair('v');
    std::string digits(pair.open.size() * 2 + 1, '\0');
    sodium_bin2hex(digits.data(), digits.size(), pair.open.data(), pair.open.size());
    digits.pop_back();
    return digits;
}

nlohmann::json payload(const std::string& machine, const std::string& id) {
    return {{"id", id},
            {"product", "vantrel"},
            {"machine", machine},
            {"plan", "personal"},
            {"issuedAt", "2026-03-01T00:00:00Z"}};
}

nlohmann::json leasedPayload(const std::string& machine, Date issuedAt, const std::string& nonce,
                             const std::string& id) {
    auto result = payload(machine, id);
    result["issuedAt"] = iso8601Text(issuedAt);
    result["leasedUntil"] = iso8601Text(issuedAt + std::chrono::days{30});
    result["nonce"] = nonce;
    return result;
}

std::string base64(std::string_view bytes) {
    std::string text(sodium_base64_encoded_len(bytes.size(), sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), octets(bytes), bytes.size(), sodium_base64_VARIANT_ORIGINAL);
    text.pop_back();
    return text;
}

nlohmann::json document(std::string_view payloadBytes, char signer) {
    const auto pair = keyPair(signer);
    const std::string encoded = base64(payloadBytes);
    const std::string message = "vantrel-license-v1\n" + encoded;
    std::array<unsigned char, crypto_sign_BYTES> signature{};
    crypto_sign_detached(signature.data(), nullptr, octets(message), message.size(), pair.secret.data());
    return {{"algorithm", "ed25519"},
            {"payload", encoded},
            {"signature", base64({reinterpret_cast<const char*>(signature.data()), signature.size()})}};
}

std::string signedLicense(const std::string& machine, const std::string& id) {
    return document(payload(machine, id).dump()).dump();
}

std::string signedLease(const nlohmann::json& request, Date issuedAt, const std::string& id) {
    return document(leasedPayload(request.at("machine"), issuedAt, request.at("nonce"), id).dump()).dump();
}

} // namespace vantrel::testing::TestLicense

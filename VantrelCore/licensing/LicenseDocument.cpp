#include "VantrelCore/licensing/LicenseDocument.h"

#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/model/StrictJson.h"

#include <algorithm>
#include <exception>
#include <sodium.h>
#include <vector>

namespace vantrel {

namespace {

constexpr const char* productName = "vantrel";

// Strict: no other characters, padded, no leftover bits; none otherwise.
std::optional<std::string> fromBase64(const std::string& text) {
    std::string bytes(text.size(), '\0');
    std::size_t size = 0;
    if (sodium_base642bin(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(), text.data(),
                          text.size(), nullptr, &size, nullptr, sodium_base64_VARIANT_ORIGINAL) != 0) {
        return std::nullopt;
    }
    bytes.resize(size);
    return bytes;
}

const unsigned char* octets(const std::string& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

} // namespace

void to_json(nlohmann::json& json, const LicenseDocument& document) {
    json = {
        {"algorithm", document.algorithm}, {"payload", document.payload}, {"signature", document.signature}};
}

void from_json(const nlohmann::json& json, LicenseDocument& document) {
    document.algorithm = JsonCoding::required<std::string>(json, "algorithm");
    document.payload = JsonCoding::required<std::string>(json, "payload");
    document.signature = JsonCoding::required<std::string>(json, "signature");
    if (json.size() != 3) {
        throw JsonCoding::Error("a licence document has three keys");
    }
}

namespace LicenseDocuments {

std::optional<PublicKey> publicKey(std::string_view hex) {
    PublicKey key{};
    std::size_t size = 0;
    const bool isHex =
        sodium_hex2bin(key.data(), key.size(), hex.data(), hex.size(), nullptr, &size, nullptr) == 0;
    return isHex && size == key.size() ? std::optional(key) : std::nullopt;
}

std::expected<LicenseDocument, LicenseProblem> parse(std::string_view text) {
    const auto json = StrictJson::parse(text, LicenseDocument::largest);
    if (!json) {
        return std::unexpected(LicenseProblem::malformed);
    }
    try {
        return JsonCoding::value<LicenseDocument>(*json);
    } catch (const std::exception&) {
        return std::unexpected(LicenseProblem::malformed);
    }
}

std::expected<License, LicenseProblem> verify(const LicenseDocument& document, const PublicKey& key) {
    if (document.algorithm != LicenseDocument::algorithmName) {
        return std::unexpected(LicenseProblem::unknownAlgorithm);
    }
    const auto signature = fromBase64(document.signature);
    const std::string message = LicenseDocument::signedPrefix + document.payload;
    if (sodium_init() < 0 || !signature || signature->size() != crypto_sign_BYTES ||
        crypto_sign_verify_detached(octets(*signature), octets(message), message.size(), key.data()) != 0) {
        return std::unexpected(LicenseProblem::badSignature);
    }
    const auto payload = fromBase64(document.payload);
    const auto json = payload ? StrictJson::parse(*payload, LicenseDocument::largest) : std::nullopt;
    if (!json) {
        return std::unexpected(LicenseProblem::malformed);
    }
    try {
        return JsonCoding::value<License>(*json);
    } catch (const std::exception&) {
        return std::unexpected(LicenseProblem::malformed);
    }
}

std::optional<LicenseProblem> problemWith(const License& license, std::string_view machine,
                                          std::span<const std::string> deactivated) {
    if (license.product != productName) {
        return LicenseProblem::otherProduct;
    }
    if (machine.empty() || license.machine != machine) {
        return LicenseProblem::otherMachine;
    }
    if (std::ranges::find(deactivated, license.id) != deactivated.end()) {
        return LicenseProblem::deactivated;
    }
    return std::nullopt;
}

} // namespace LicenseDocuments

} // namespace vantrel

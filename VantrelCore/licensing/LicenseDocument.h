// A licence as signed by the vendor. It contains the signed bytes themselves, so that verification does not
// depend on re-encoding; docs/licensing.md describes the format.
#pragma once

#include "VantrelCore/licensing/LicenseProblem.h"
#include "VantrelCore/model/License.h"

#include <array>
#include <cstddef>
#include <expected>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel {

struct LicenseDocument {
    static constexpr const char* algorithmName = "ed25519";
    // Signed before the payload, so that no other signature made with that key can pass for a licence.
    static constexpr const char* signedPrefix = "vantrel-license-v1\n";
    // In bytes.
    static constexpr std::size_t largest = 16'384;

    std::string algorithm;
    // The licence's JSON in base64. The signature covers the prefix and these characters.
    std::string payload;
    // Base64.
    std::string signature;

    bool operator==(const LicenseDocument&) const = default;
};

void to_json(nlohmann::json& json, const LicenseDocument& document);
// Throws on any other key.
void from_json(const nlohmann::json& json, LicenseDocument& document);

namespace LicenseDocuments {

using PublicKey = std::array<unsigned char, 32>;

// None if the text is not 64 hexadecimal digits.
[[nodiscard]] std::optional<PublicKey> publicKey(std::string_view hex);

// Parses a document from a server or a file.
[[nodiscard]] std::expected<LicenseDocument, LicenseProblem> parse(std::string_view text);

// The licence, if the vendor signed it.
[[nodiscard]] std::expected<License, LicenseProblem> verify(const LicenseDocument& document,
                                                            const PublicKey& key);

// Why a genuine licence is not valid here. `machine` is empty on a computer without an identity.
[[nodiscard]] std::optional<LicenseProblem> problemWith(const License& license, std::string_view machine,
                                                        std::span<const std::string> deactivated);

} // namespace LicenseDocuments

} // namespace vantrel

// A licence as the vendor signed it. It carries the signed bytes themselves, so that nothing has to be
// written again in just the same way to check them; docs/licensing.md has the form.
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
    // What the vendor signs before the payload, so that no other signature of that key can pass for a
    // licence.
    static constexpr const char* signedPrefix = "vantrel-license-v1\n";
    // In bytes.
    static constexpr std::size_t largest = 16'384;

    std::string algorithm;
    // The licence's JSON in base64. These characters are what is signed, behind the prefix.
    std::string payload;
    // In base64.
    std::string signature;

    bool operator==(const LicenseDocument&) const = default;
};

void to_json(nlohmann::json& json, const LicenseDocument& document);
// Throws on any key but the three.
void from_json(const nlohmann::json& json, LicenseDocument& document);

namespace LicenseDocuments {

using PublicKey = std::array<unsigned char, 32>;

// None when the text is not 64 hexadecimal digits.
[[nodiscard]] std::optional<PublicKey> publicKey(std::string_view hex);

// What a server sends or a file holds.
[[nodiscard]] std::expected<LicenseDocument, LicenseProblem> parse(std::string_view text);

// The licence, when the vendor signed it.
[[nodiscard]] std::expected<License, LicenseProblem> verify(const LicenseDocument& document,
                                                            const PublicKey& key);

// What stands against a licence that is genuine. `machine` is empty on a computer without an identity.
[[nodiscard]] std::optional<LicenseProblem> objection(const License& license, std::string_view machine,
                                                      std::span<const std::string> deactivated);

} // namespace LicenseDocuments

} // namespace vantrel

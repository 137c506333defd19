// The vendor of the tests: a key pair that is no secret, and licences signed with it.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace vantrel::testing::TestLicense {

// In hexadecimal digits.
[[nodiscard]] std::string publicKey();

// A licence that names this computer and everything else as it should be.
[[nodiscard]] nlohmann::json payload(const std::string& machine, const std::string& id = "license-1");

[[nodiscard]] std::string base64(std::string_view bytes);

// A document around any bytes, signed rightly; `signer` is a seed of one letter, others are other vendors.
[[nodiscard]] nlohmann::json document(std::string_view payloadBytes, char signer = 'v');

// The answer of a good server.
[[nodiscard]] std::string signedLicense(const std::string& machine, const std::string& id = "license-1");

} // namespace vantrel::testing::TestLicense

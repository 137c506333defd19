// The vendor of the tests: a key pair that is no secret, and licences signed with it.
#pragma once

#include "VantrelCore/model/Date.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace vantrel::testing::TestLicense {

// In hexadecimal digits.
[[nodiscard]] std::string publicKey();

// A licence that names this computer and everything else as it should be.
[[nodiscard]] nlohmann::json payload(const std::string& machine, const std::string& id = "license-1");

// The same with a lease of 30 days, as the answer to a request with that nonce.
[[nodiscard]] nlohmann::json leasedPayload(const std::string& machine, Date issuedAt,
                                           const std::string& nonce, const std::string& id = "license-1");

[[nodiscard]] std::string base64(std::string_view bytes);

// A document around any bytes, signed rightly; `signer` is a seed of one letter, others are other vendors.
[[nodiscard]] nlohmann::json document(std::string_view payloadBytes, char signer = 'v');

// A licence from before there were leases.
[[nodiscard]] std::string signedLicense(const std::string& machine, const std::string& id = "license-1");

// The answer of a good server to the body of an activation or a renewal.
[[nodiscard]] std::string signedLease(const nlohmann::json& request, Date issuedAt,
                                      const std::string& id = "license-1");

} // namespace vantrel::testing::TestLicense

// The vendor of the tests: a public key pair, and licences signed with it.
#pragma once

#include "VantrelCore/model/Date.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace vantrel::testing::TestLicense {

// In hexadecimal digits.
[[nodiscard]] std::string publicKey();

// A valid licence for this computer.
[[nodiscard]] nlohmann::json payload(const std::string& machine, const std::string& id = "license-1");

// The same with a lease of 30 days, in reply to a request with that nonce.
[[nodiscard]] nlohmann::json leasedPayload(const std::string& machine, Date issuedAt,
                                           const std::string& nonce, const std::string& id = "license-1");

[[nodiscard]] std::string base64(std::string_view bytes);

// A correctly signed document with any payload. `signer` is a one-letter seed; other letters are other
// vendors.
[[nodiscard]] nlohmann::json document(std::string_view payloadBytes, char signer = 'v');

// A licence from before there were leases.
[[nodiscard]] std::string signedLicense(const std::string& machine, const std::string& id = "license-1");

// What a correct server replies to an activation or a renewal.
[[nodiscard]] std::string signedLease(const nlohmann::json& request, Date issuedAt,
                                      const std::string& id = "license-1");

} // namespace vantrel::testing::TestLicense

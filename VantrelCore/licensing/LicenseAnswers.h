// What is asked of the vendor's server about licences, and what its answers mean.
#pragma once

#include "VantrelCore/licensing/LicenseDocument.h"
#include "VantrelCore/ports/HttpClient.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::LicenseAnswers {

// A key as it was typed or pasted, without blanks around it; none when it cannot be one.
[[nodiscard]] std::optional<std::string> key(std::string_view typed);

// The server signs `nonce` with its answer, which shows that the answer is not an old one.
[[nodiscard]] HttpRequest activation(const std::string& apiServer, const std::string& key,
                                     const std::string& machine, const std::string& nonce);
[[nodiscard]] HttpRequest renewal(const std::string& apiServer, const License& license,
                                  const std::string& nonce);
[[nodiscard]] HttpRequest deactivation(const std::string& apiServer, const License& license);

// The licence that came, signed by whomever; or in a sentence why none did.
[[nodiscard]] std::expected<LicenseDocument, std::string> activated(const HttpResult& result);

// Whether the server says of a licence that was to be renewed that it was given back or taken away. No other
// refusal means that: a server that has lost its data or its mind must not end what was paid for.
[[nodiscard]] bool isWithdrawn(const HttpResult& result);

// Nothing when the server has taken the licence back; or in a sentence why not.
[[nodiscard]] std::expected<void, std::string> deactivated(const HttpResult& result);

} // namespace vantrel::LicenseAnswers

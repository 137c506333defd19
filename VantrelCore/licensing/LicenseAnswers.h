// Builds licence requests to the vendor's server and interprets the replies.
#pragma once

#include "VantrelCore/licensing/LicenseDocument.h"
#include "VantrelCore/ports/HttpClient.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::LicenseAnswers {

// A typed or pasted key, trimmed; none if it cannot be a key.
[[nodiscard]] std::optional<std::string> key(std::string_view typed);

// The server signs `nonce` in its reply, which proves that the reply is not an old one.
[[nodiscard]] HttpRequest activation(const std::string& apiServer, const std::string& key,
                                     const std::string& machine, const std::string& nonce);
[[nodiscard]] HttpRequest renewal(const std::string& apiServer, const License& license,
                                  const std::string& nonce);
[[nodiscard]] HttpRequest deactivation(const std::string& apiServer, const License& license);

// The received licence, its signature not yet verified; or a sentence saying why there is none.
[[nodiscard]] std::expected<LicenseDocument, std::string> activated(const HttpResult& result);

// Whether the server reports that the licence to renew was returned or revoked. No other refusal means that:
// a faulty server must not end a paid licence.
[[nodiscard]] bool isWithdrawn(const HttpResult& result);

// Success if the server took the licence back, else a sentence saying why not.
[[nodiscard]] std::expected<void, std::string> deactivated(const HttpResult& result);

} // namespace vantrel::LicenseAnswers

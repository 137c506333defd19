#include "VantrelCore/licensing/LicenseAnswers.h"

#include "VantrelCore/model/StrictJson.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace vantrel::LicenseAnswers {

namespace {

constexpr std::size_t longestKey = 128;
constexpr std::size_t longestSentence = 200;
constexpr const char* unchanged = marked("Nothing was changed.");
// HTTP status: the server no longer has the licence.
constexpr int gone = 410;

HttpRequest post(const std::string& url, const nlohmann::json& body) {
    return {.method = HttpMethod::post,
            .url = url,
            .headers = {{"Content-Type", "application/json"}},
            .body = body.dump(),
            .largestBody = LicenseDocument::largest};
}

// The text may be printed on a terminal and must not control it.
bool isHarmless(const std::string& text) {
    const bool hasControls = std::ranges::any_of(text, [](unsigned char c) { return c < 0x20 || c == 0x7f; });
    bool hasMoreControls = false;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        // U+0080 to U+009F.
        hasMoreControls =
            hasMoreControls || (text[i] == '\xc2' && static_cast<unsigned char>(text[i + 1]) < 0xa0);
    }
    return !text.empty() && text.size() <= longestSentence && !hasControls && !hasMoreControls;
}

// The server's sentence for the user: {"error": "…"}.
std::optional<std::string> serversSentence(const std::string& body) {
    const auto json = StrictJson::parse(body, LicenseDocument::largest);
    if (!json || !json->is_object() || !json->contains("error") || !json->at("error").is_string()) {
        return std::nullopt;
    }
    auto text = json->at("error").get<std::string>();
    return isHarmless(text) ? std::optional(std::move(text)) : std::nullopt;
}

std::string refusal(const HttpResponse& response) {
    if (response.status >= 400 && response.status < 500) {
        return serversSentence(response.body)
            .value_or(trf("The server does not accept this key ({}).", response.status));
    }
    return trf("The server has a problem ({}). Nothing was changed. Try again later.", response.status);
}

// Success if the server agreed, else a sentence for the user.
std::expected<void, std::string> agreed(const HttpResult& result) {
    if (!result) {
        return std::unexpected(fmt::format("{} {}", tr(result.error().sentence.c_str()), tr(unchanged)));
    }
    if (result->status < 200 || result->status > 299) {
        return std::unexpected(refusal(*result));
    }
    return {};
}

} // namespace

std::optional<std::string> key(std::string_view typed) {
    const auto text = Unicode::trimmed(typed);
    const bool isPrintable = std::ranges::all_of(text, [](char c) { return c > ' ' && c <= '~'; });
    return text.empty() || text.size() > longestKey || !isPrintable ? std::nullopt
                                                                    : std::optional<std::string>(text);
}

HttpRequest activation(const std::string& apiServer, const std::string& key, const std::string& machine,
                       const std::string& nonce) {
    return post(apiServer + "/activate", {{"key", key}, {"machine", machine}, {"nonce", nonce}});
}

HttpRequest renewal(const std::string& apiServer, const License& license, const std::string& nonce) {
    return post(apiServer + "/renew", {{"id", license.id}, {"machine", license.machine}, {"nonce", nonce}});
}

HttpRequest deactivation(const std::string& apiServer, const License& license) {
    return post(apiServer + "/deactivate", {{"id", license.id}, {"machine", license.machine}});
}

std::expected<LicenseDocument, std::string> activated(const HttpResult& result) {
    if (auto agreement = agreed(result); !agreement) {
        return std::unexpected(std::move(agreement.error()));
    }
    auto document = LicenseDocuments::parse(result->body);
    if (!document) {
        return std::unexpected(trf("The server's reply is not a license. Nothing was changed."));
    }
    return *std::move(document);
}

bool isWithdrawn(const HttpResult& result) {
    return result && result->status == gone;
}

std::expected<void, std::string> deactivated(const HttpResult& result) {
    return isWithdrawn(result) ? std::expected<void, std::string>{} : agreed(result);
}

} // namespace vantrel::LicenseAnswers

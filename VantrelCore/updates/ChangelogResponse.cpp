#include "VantrelCore/updates/ChangelogResponse.h"

#include "VantrelCore/model/JsonCoding.h"

#include <exception>

namespace vantrel {

std::optional<ChangelogResponse> ChangelogResponse::decode(std::string_view text) {
    try {
        ChangelogResponse response;
        const auto json = nlohmann::json::parse(text);
        JsonCoding::requireObject(json);
        const auto& releases = json.at("releases");
        JsonCoding::requireArray(releases);
        for (const auto& release : releases) {
            response.releases.push_back({JsonCoding::required<std::string>(release, "version")});
        }
        return response;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

} // namespace vantrel

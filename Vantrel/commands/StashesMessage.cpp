#include "Vantrel/commands/StashesMessage.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

void to_json(nlohmann::json& json, const StashesMessage& message) {
    json = {{"stashes", message.stashes}};
    JsonCoding::put(json, "activeStash", message.activeStash);
}

void from_json(const nlohmann::json& json, StashesMessage& message) {
    message = {.stashes = JsonCoding::required<std::vector<Stash>>(json, "stashes"),
               .activeStash = JsonCoding::optional<std::string>(json, "activeStash")};
}

} // namespace vantrel

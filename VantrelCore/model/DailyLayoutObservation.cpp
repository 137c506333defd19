#include "VantrelCore/model/DailyLayoutObservation.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

void to_json(nlohmann::json& json, const DailyLayoutObservation& observation) {
    json = {
        {"configID", observation.configID}, {"day", observation.day}, {"signature", observation.signature}};
}

void from_json(const nlohmann::json& json, DailyLayoutObservation& observation) {
    observation = {.configID = JsonCoding::required<std::string>(json, "configID"),
                   .day = JsonCoding::required<std::string>(json, "day"),
                   .signature = JsonCoding::required<std::vector<std::string>>(json, "signature")};
}

} // namespace vantrel

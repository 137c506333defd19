#include "VantrelCore/model/ProgramNotes.h"

#include "VantrelCore/model/JsonCoding.h"

#include <utility>

namespace vantrel {

void to_json(nlohmann::json& json, const ProgramNotes& notes) {
    json = {{"version", notes.version}, {"notes", notes.notes}};
}

void from_json(const nlohmann::json& json, ProgramNotes& notes) {
    ProgramNotes read;
    read.version = JsonCoding::required<std::int64_t>(json, "version");
    read.notes = JsonCoding::required<std::map<std::string, nlohmann::json>>(json, "notes");
    notes = std::move(read);
}

} // namespace vantrel

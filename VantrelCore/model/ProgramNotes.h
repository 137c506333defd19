// What the program remembers for itself that belongs to the user and not to a desk, by key.
#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace vantrel {

struct ProgramNotes {
    std::int64_t version = 1;
    std::map<std::string, nlohmann::json> notes;

    bool operator==(const ProgramNotes&) const = default;
};

void to_json(nlohmann::json& json, const ProgramNotes& notes);
void from_json(const nlohmann::json& json, ProgramNotes& notes);

} // namespace vantrel

// What a licence says: for which computer the vendor gave it, and how long it holds.
#pragma once

#include "VantrelCore/model/Date.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace vantrel {

struct License {
    // Another one with every activation.
    std::string id;
    std::string product;
    // As LicensedMachine::hash gives it.
    std::string machine;
    // What was bought: "personal".
    std::string plan;
    Date issuedAt;
    // None: it holds for ever.
    std::optional<Date> expiresAt;
    // When it has to be renewed; none in a licence from before there were leases.
    std::optional<Date> leasedUntil;
    // Of the request that this licence answers.
    std::optional<std::string> nonce;
    // Whose it is, when the vendor says so.
    std::optional<std::string> holder;

    bool operator==(const License&) const = default;
};

void to_json(nlohmann::json& json, const License& license);
void from_json(const nlohmann::json& json, License& license);

} // namespace vantrel

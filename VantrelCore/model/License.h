// A licence: the computer it was issued for, and how long it is valid.
#pragma once

#include "VantrelCore/model/Date.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace vantrel {

struct License {
    // New with every activation.
    std::string id;
    std::string product;
    // From LicensedMachine::hash.
    std::string machine;
    // What was bought: "personal".
    std::string plan;
    Date issuedAt;
    // None: it never expires.
    std::optional<Date> expiresAt;
    // When it must be renewed; none in licences issued before leases existed.
    std::optional<Date> leasedUntil;
    // The nonce of the request that this licence was issued for.
    std::optional<std::string> nonce;
    // The licence holder, if the vendor names one.
    std::optional<std::string> holder;

    bool operator==(const License&) const = default;
};

void to_json(nlohmann::json& json, const License& license);
void from_json(const nlohmann::json& json, License& license);

} // namespace vantrel

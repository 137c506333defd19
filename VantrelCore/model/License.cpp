#include "VantrelCore/model/License.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

using namespace JsonCoding;

void to_json(nlohmann::json& json, const License& license) {
    json = {{"id", license.id},
            {"product", license.product},
            {"machine", license.machine},
            {"plan", license.plan}};
    put(json, "issuedAt", license.issuedAt);
    put(json, "expiresAt", license.expiresAt);
    put(json, "leasedUntil", license.leasedUntil);
    put(json, "nonce", license.nonce);
    put(json, "holder", license.holder);
}

void from_json(const nlohmann::json& json, License& license) {
    license.id = required<std::string>(json, "id");
    license.product = required<std::string>(json, "product");
    license.machine = required<std::string>(json, "machine");
    license.plan = required<std::string>(json, "plan");
    license.issuedAt = required<Date>(json, "issuedAt");
    license.expiresAt = optional<Date>(json, "expiresAt");
    license.leasedUntil = optional<Date>(json, "leasedUntil");
    license.nonce = optional<std::string>(json, "nonce");
    license.holder = optional<std::string>(json, "holder");
}

} // namespace vantrel

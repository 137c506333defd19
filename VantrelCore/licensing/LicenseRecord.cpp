#include "VantrelCore/licensing/LicenseRecord.h"

#include "VantrelCore/licensing/Digest.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/model/StrictJson.h"

#include <algorithm>
#include <exception>
#include <iterator>

namespace vantrel::LicenseRecords {

namespace {

constexpr std::int64_t schemaVersion = 1;

// Enough for a document and many deactivations.
constexpr std::size_t largestFile = 1'000'000;

std::string sealOf(const nlohmann::json& record, std::string_view machine) {
    return Digest::hex("vantrel license record\n" + std::string(machine) + "\n" + record.dump());
}

nlohmann::json toJson(const LicenseRecord& record) {
    nlohmann::json json{{"deactivated", record.deactivated}};
    JsonCoding::put(json, "trialStartedAt", record.trialStartedAt);
    JsonCoding::put(json, "latestSeen", record.latestSeen);
    JsonCoding::put(json, "license", record.document);
    JsonCoding::put(json, "withdrawn", record.withdrawn);
    if (record.problem) {
        json["problem"] = LicenseProblems::name(*record.problem);
    }
    return json;
}

LicenseRecord fromJson(const nlohmann::json& json) {
    LicenseRecord record;
    record.trialStartedAt = JsonCoding::required<Date>(json, "trialStartedAt");
    record.latestSeen = JsonCoding::required<Date>(json, "latestSeen");
    record.deactivated = JsonCoding::required<std::vector<std::string>>(json, "deactivated");
    record.document = JsonCoding::optional<LicenseDocument>(json, "license");
    record.withdrawn = JsonCoding::optional<std::string>(json, "withdrawn");
    if (const auto name = JsonCoding::optional<std::string>(json, "problem")) {
        // A problem known only to a newer version is still a problem.
        record.problem = LicenseProblems::named(*name).value_or(LicenseProblem::malformed);
    }
    return record;
}

} // namespace

std::string encode(const LicenseRecord& record, std::string_view machine) {
    const auto json = toJson(record);
    return nlohmann::json{{"version", schemaVersion}, {"record", json}, {"seal", sealOf(json, machine)}}.dump(
               2) +
           '\n';
}

std::expected<LicenseRecord, LicenseProblem> decode(std::string_view text, std::string_view machine) {
    const auto json = StrictJson::parse(text, largestFile);
    if (!json) {
        return std::unexpected(LicenseProblem::damaged);
    }
    try {
        const auto record = JsonCoding::required<nlohmann::json>(*json, "record");
        if (JsonCoding::required<std::string>(*json, "seal") != sealOf(record, machine)) {
            return std::unexpected(LicenseProblem::changed);
        }
        return fromJson(record);
    } catch (const std::exception&) {
        return std::unexpected(LicenseProblem::damaged);
    }
}

LicenseRecord merged(const LicenseRecord& main, const LicenseRecord& copy) {
    LicenseRecord result = main;
    result.trialStartedAt = std::min(main.trialStartedAt, copy.trialStartedAt);
    result.latestSeen = std::max(main.latestSeen, copy.latestSeen);
    std::ranges::copy_if(copy.deactivated, std::back_inserter(result.deactivated),
                         [&](const std::string& id) {
                             return std::ranges::find(main.deactivated, id) == main.deactivated.end();
                         });
    if (copy.withdrawn) {
        result.withdrawn = copy.withdrawn;
    }
    return result;
}

LicenseRecord forCopy(const LicenseRecord& record) {
    LicenseRecord copy = record;
    copy.document.reset();
    copy.problem.reset();
    return copy;
}

} // namespace vantrel::LicenseRecords

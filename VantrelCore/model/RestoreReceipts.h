// How many windows each restore put back, for the total over the last seven days.
#pragma once

#include "VantrelCore/model/AgeLoss.h"
#include "VantrelCore/model/Date.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <vector>

namespace vantrel {

struct RestoreReceiptEntry {
    Date date;
    std::int64_t windowsRestored = 0;

    bool operator==(const RestoreReceiptEntry&) const = default;
};

struct RestoreReceipts {
    static constexpr double retentionSeconds = 30 * 86'400;
    static constexpr double summedSeconds = 7 * 86'400;

    // In recording order.
    std::vector<RestoreReceiptEntry> entries;

    bool operator==(const RestoreReceipts&) const = default;

    // Also drops entries more than thirty days older than `at`, and returns how many.
    AgeLoss record(std::int64_t count, Date at);

    // Windows put back no more than seven days before `now`; clamped to the 64-bit range.
    [[nodiscard]] std::int64_t windowsLast7Days(Date now) const;
};

void to_json(nlohmann::json& json, const RestoreReceiptEntry& entry);
void from_json(const nlohmann::json& json, RestoreReceiptEntry& entry);
void to_json(nlohmann::json& json, const RestoreReceipts& receipts);
void from_json(const nlohmann::json& json, RestoreReceipts& receipts);

} // namespace vantrel

#include "VantrelCore/model/RestoreReceipts.h"

#include "VantrelCore/model/Counting.h"
#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

AgeLoss RestoreReceipts::record(std::int64_t count, Date at) {
    const std::size_t held = entries.size();
    entries.push_back({at, count});
    const Date cutoff = dateAfter(at, -retentionSeconds);
    return {held,
            std::erase_if(entries, [&](const RestoreReceiptEntry& entry) { return entry.date < cutoff; })};
}

std::int64_t RestoreReceipts::windowsLast7Days(Date now) const {
    const Date cutoff = dateAfter(now, -summedSeconds);
    std::int64_t sum = 0;
    for (const auto& entry : entries) {
        if (entry.date >= cutoff) {
            sum = saturatingSum(sum, entry.windowsRestored);
        }
    }
    return sum;
}

void to_json(nlohmann::json& json, const RestoreReceiptEntry& entry) {
    json = {{"windowsRestored", entry.windowsRestored}};
    JsonCoding::put(json, "date", entry.date);
}

void from_json(const nlohmann::json& json, RestoreReceiptEntry& entry) {
    entry = {.date = JsonCoding::required<Date>(json, "date"),
             .windowsRestored = JsonCoding::required<std::int64_t>(json, "windowsRestored")};
}

void to_json(nlohmann::json& json, const RestoreReceipts& receipts) {
    json = {{"entries", receipts.entries}};
}

void from_json(const nlohmann::json& json, RestoreReceipts& receipts) {
    receipts.entries = JsonCoding::required<std::vector<RestoreReceiptEntry>>(json, "entries");
}

} // namespace vantrel

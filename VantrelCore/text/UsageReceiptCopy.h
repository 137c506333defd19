// The sentence that sums up what the program has done for the user.
#pragma once

#include "VantrelCore/model/UsageStats.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel::UsageReceiptCopy {

// "In your 7 days, Vantrel restored your desk 12 times, switched scenes once and put 1,240 windows back so
// you did not have to." Omits counts of zero; empty if all are.
[[nodiscard]] std::string sentence(const UsageStats& stats);

// With a comma between groups of three digits: "1,240".
[[nodiscard]] std::string grouped(std::int64_t number);

// "a", "a and b", "a, b and c"; empty for none.
[[nodiscard]] std::string join(const std::vector<std::string>& parts);

} // namespace vantrel::UsageReceiptCopy

// The report of a restore, as sent over the session bus: the counts, and the outcome for every saved window.
#pragma once

#include "VantrelCore/windows/RestoreReport.h"

#include <nlohmann/json_fwd.hpp>
#include <string_view>

namespace vantrel {

// "restored", "retried", "skipped" or "failed".
[[nodiscard]] std::string_view outcomeName(RestoreReport::Kind kind);

// The counts are informational; only `elapsed` and `items` are read back.
void to_json(nlohmann::json& json, const RestoreReport& report);
void from_json(const nlohmann::json& json, RestoreReport& report);

} // namespace vantrel

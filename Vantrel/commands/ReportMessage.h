// The report of a restore as it goes over the session bus: the counts, and of every saved window what became
// of it.
#pragma once

#include "VantrelCore/windows/RestoreReport.h"

#include <nlohmann/json_fwd.hpp>
#include <string_view>

namespace vantrel {

// "restored", "retried", "skipped" or "failed".
[[nodiscard]] std::string_view outcomeName(RestoreReport::Kind kind);

// The counts are for readers; only `elapsed` and `items` are read back.
void to_json(nlohmann::json& json, const RestoreReport& report);
void from_json(const nlohmann::json& json, RestoreReport& report);

} // namespace vantrel

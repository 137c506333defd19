// The files of the tz database (TZif, RFC 9636), of any version, "fat" or "slim".
#pragma once

#include "VantrelCore/model/ZoneRules.h"

#include <optional>
#include <string_view>

namespace vantrel::ZoneFile {

// None when the content is no zone file, or a damaged one. Leap seconds are passed over: clocks that count
// them are off by half a minute.
[[nodiscard]] std::optional<ZoneRules> decode(std::string_view content);

} // namespace vantrel::ZoneFile

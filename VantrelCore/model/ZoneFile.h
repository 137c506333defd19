// Decodes files of the tz database (TZif, RFC 9636), any version, "fat" or "slim".
#pragma once

#include "VantrelCore/model/ZoneRules.h"

#include <optional>
#include <string_view>

namespace vantrel::ZoneFile {

// None when the content is not a valid zone file. Leap seconds are ignored: on clocks that count them, times
// are off by half a minute.
[[nodiscard]] std::optional<ZoneRules> decode(std::string_view content);

} // namespace vantrel::ZoneFile

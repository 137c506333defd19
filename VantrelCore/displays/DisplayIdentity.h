// Finds monitors whose identity data carries no serial number: two of them cannot be told apart.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::DisplayIdentity {

// True when the text is a canonical UUID whose second and third groups are all zero. Malformed: false.
[[nodiscard]] bool serialFieldMissing(std::string_view uuid);

// A sentence about an external display without a serial number, else none.
[[nodiscard]] std::optional<std::string> diagnosis(const DisplayInfo& display, const std::string& label);

// Display uuid to message.
[[nodiscard]] std::map<std::string, std::string> diagnoses(const std::vector<DisplayInfo>& displays);

} // namespace vantrel::DisplayIdentity

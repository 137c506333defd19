// Finds monitors whose identity data lacks a serial number: two such monitors look the same.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::DisplayIdentity {

// True when the string is a canonical UUID whose second and third groups are all zero.
[[nodiscard]] bool serialFieldMissing(std::string_view uuid);

// A sentence if `display` is external and lacks a serial number, else none.
[[nodiscard]] std::optional<std::string> diagnosis(const DisplayInfo& display, const std::string& label);

// Display uuid to message.
[[nodiscard]] std::map<std::string, std::string> diagnoses(const std::vector<DisplayInfo>& displays);

} // namespace vantrel::DisplayIdentity

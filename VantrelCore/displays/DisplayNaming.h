// Distinguishes displays that share a name.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <map>
#include <string>
#include <vector>

namespace vantrel::DisplayNaming {

// Display uuid to label, only for displays that share a name: "Studio Display (left)", "… (right)".
[[nodiscard]] std::map<std::string, std::string> labels(const std::vector<DisplayInfo>& displays);

} // namespace vantrel::DisplayNaming

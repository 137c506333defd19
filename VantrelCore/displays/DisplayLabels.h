// Display labels: one per display wherever displays are shown, and resolution of a label that a user types.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <expected>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::DisplayLabels {

// Display uuid to label: the display's name, followed by its place if others share the name. Labels are
// unique, ignoring case.
[[nodiscard]] std::map<std::string, std::string> of(const std::vector<DisplayInfo>& displays);

// The displays with their names replaced by their labels.
[[nodiscard]] std::vector<DisplayInfo> labelled(std::vector<DisplayInfo> displays);

// Finds the display that `called` refers to, and returns it with its label as its name. Matches an identity,
// a label or a name, ignoring case, else the beginning of a label. `desks` are lists of displays, each
// labelled separately; the first is the current desk and takes precedence. When nothing or more than one
// display fits, the error is a sentence that lists the choices.
[[nodiscard]] std::expected<DisplayInfo, std::string>
resolve(std::string_view called, const std::vector<std::vector<DisplayInfo>>& desks);

} // namespace vantrel::DisplayLabels

// What displays are called: one label each in everything that is shown, and which display a user means who
// types one.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <expected>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::DisplayLabels {

// Display uuid to label: the display's name, with its place behind it where others have the same name. No two
// are the same, whatever the case of their letters.
[[nodiscard]] std::map<std::string, std::string> of(const std::vector<DisplayInfo>& displays);

// The displays with their labels for names.
[[nodiscard]] std::vector<DisplayInfo> labelled(std::vector<DisplayInfo> displays);

// The display that `called` means, with its label for a name: an identity, a label or a name, in whatever
// case, else the beginning of one label. `desks` are lists of displays, each labelled for itself; the first
// one, where the user sits, goes before the others. Refuses what fits none or several with a sentence that
// lists the known ones.
[[nodiscard]] std::expected<DisplayInfo, std::string>
resolve(std::string_view called, const std::vector<std::vector<DisplayInfo>>& desks);

} // namespace vantrel::DisplayLabels

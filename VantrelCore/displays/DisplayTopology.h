// Which displays make up the desk, and the identity of a desk: its configID keys every store.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/ports/DisplayServices.h"

#include <string>
#include <vector>

namespace vantrel::DisplayTopology {

// The active displays in the platform's order; none while all of them are asleep.
[[nodiscard]] std::vector<DisplayInfo> currentDisplays(DisplayServices& services);

// The pure step behind currentDisplays.
[[nodiscard]] std::vector<DisplayInfo> displays(const std::vector<ActiveDisplay>& active,
                                                const std::vector<Screen>& screens,
                                                const std::vector<EdidHint>& edidHints);

// 32 lowercase hexadecimal characters: the first half of the SHA-256 of every display's uuid, place and size
// in whole points, whatever the order of the list. Names do not take part.
[[nodiscard]] std::string configID(const std::vector<DisplayInfo>& displays);

// "Alpha Monitor + Beta Monitor + Built-in Display": external displays by name, then built-in ones.
[[nodiscard]] std::string configName(const std::vector<DisplayInfo>& displays);

// The display's uuid text, "display-" and its number when it is not active or has no UUID.
[[nodiscard]] std::string uuid(DisplayID displayID, DisplayServices& services);

} // namespace vantrel::DisplayTopology

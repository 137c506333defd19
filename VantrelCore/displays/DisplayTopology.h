// The displays of the desk, and the desk's identity: its configID is the key in every store.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/ports/DisplayServices.h"

#include <string>
#include <vector>

namespace vantrel::DisplayTopology {

// The active displays in the platform's order; empty while all of them are asleep.
[[nodiscard]] std::vector<DisplayInfo> currentDisplays(DisplayServices& services);

// The pure part of currentDisplays.
[[nodiscard]] std::vector<DisplayInfo> displays(const std::vector<ActiveDisplay>& active,
                                                const std::vector<Screen>& screens,
                                                const std::vector<EdidHint>& edidHints);

// 32 lowercase hexadecimal characters: the first half of the SHA-256 of every display's uuid, position and
// size in whole points. Independent of the list's order and of names.
[[nodiscard]] std::string configID(const std::vector<DisplayInfo>& displays);

// "Alpha Monitor + Beta Monitor + Built-in Display": external displays by name, then built-in ones.
[[nodiscard]] std::string configName(const std::vector<DisplayInfo>& displays);

// The display's uuid, or "display-" and its number when it is inactive or has none.
[[nodiscard]] std::string uuid(DisplayID displayID, DisplayServices& services);

} // namespace vantrel::DisplayTopology

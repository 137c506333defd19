// The longer lines of the application log, as pure functions.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <string>
#include <vector>

namespace vantrel::ControllerText {

// "display settled: 0123… Built-in Display (1 display)".
[[nodiscard]] std::string displaySettled(const std::string& configID,
                                         const std::vector<DisplayInfo>& displays);

// Names the displays that a change added: "LG UltraFine reconnected", "Left and Right reconnected". Empty if
// none were added.
[[nodiscard]] std::string reconnected(const std::vector<DisplayInfo>& before,
                                      const std::vector<DisplayInfo>& after);

// "restore report: 5 restored, 1 failed, 0 skipped, 2 retried, 6 expected, 40 ms", followed by each failed
// window with its reason.
[[nodiscard]] std::string restoreReport(const RestoreReport& report);

// "1 window", "2 windows".
[[nodiscard]] std::string windows(std::size_t count);

} // namespace vantrel::ControllerText

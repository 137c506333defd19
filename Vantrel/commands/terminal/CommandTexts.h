// The text that vantrelctl prints: status, report, desks, layouts and stashes, as lines no wider than the
// terminal.
#pragma once

#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/StashesMessage.h"
#include "Vantrel/commands/StatusMessage.h"
#include "Vantrel/commands/terminal/DeskDrawing.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <functional>
#include <string>

namespace vantrel::CommandTexts {

// Formats a date in local time.
using DateText = std::function<std::string(Date)>;

[[nodiscard]] std::string status(const StatusMessage& status, const DeskDrawing::Options& options,
                                 const DateText& dateText);

// The counts in a sentence, then a line for every window, those that were not restored first.
[[nodiscard]] std::string report(const RestoreReport& report, const DeskDrawing::Options& options);

[[nodiscard]] std::string desks(const DesksMessage& message, const DeskDrawing::Options& options,
                                const DateText& dateText);

// A line for every layout of the desk, with a star at the active one; empty if there are none.
[[nodiscard]] std::string layouts(const DeskMessage& desk, const DeskDrawing::Options& options,
                                  const DateText& dateText);

// A line for every stash, newest first, with a star at the active one; empty if there are none.
[[nodiscard]] std::string stashes(const StashesMessage& message, const DeskDrawing::Options& options,
                                  const DateText& dateText);

} // namespace vantrel::CommandTexts

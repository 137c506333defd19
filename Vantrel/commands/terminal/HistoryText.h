// The restore history as vantrelctl prints it: a line for every restore, under it a line for every window.
#pragma once

#include "Vantrel/commands/terminal/DeskDrawing.h"
#include "VantrelCore/model/RestoreLog.h"

#include <string>

namespace vantrel::HistoryText {

// Newest first, as in the log, what needs attention first within a restore. "" for an empty log.
[[nodiscard]] std::string history(const RestoreLog& log, Date now, const DeskDrawing::Options& options);

} // namespace vantrel::HistoryText

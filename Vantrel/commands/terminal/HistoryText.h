// The restore history as printed by vantrelctl: a line for every restore, followed by a line for every
// window.
#pragma once

#include "Vantrel/commands/terminal/DeskDrawing.h"
#include "VantrelCore/model/RestoreLog.h"

#include <string>

namespace vantrel::HistoryText {

// Newest first; within a restore, items that need attention first. Empty for an empty log.
[[nodiscard]] std::string history(const RestoreLog& log, Date now, const DeskDrawing::Options& options);

} // namespace vantrel::HistoryText

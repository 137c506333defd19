// What caused a restore, in the words of the history: "Restore now", "Scene “Write”".
#pragma once

#include "VantrelCore/model/RestoreLog.h"

#include <cstdint>
#include <string>

namespace vantrel::RestoreCauseCaption {

enum class Kind : std::uint8_t { displays, scene, asked, layout, pinned, stash, undo, other };

[[nodiscard]] Kind kind(const RestoreLog::Entry& entry);

// For causes that it does not know, the reason as it was recorded.
[[nodiscard]] std::string title(const RestoreLog::Entry& entry);

} // namespace vantrel::RestoreCauseCaption

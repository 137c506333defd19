// Gives an edited scene the places of the windows that are open now.
#pragma once

#include "VantrelCore/studio/SceneDraft.h"

#include <map>
#include <set>
#include <vector>

namespace vantrel::TakenFromDesk {

// The open windows as captured. Slots stay for applications that have no open window, behind all others.
[[nodiscard]] std::vector<WindowRecord> all(const SceneDraft& draft,
                                            const std::vector<WindowRecord>& captured);

// The frames of the open windows that pair with these boxes as in a restore. A box without a partner is
// missing.
[[nodiscard]] std::map<SceneDraft::BoxID, Rect> frames(const SceneDraft& draft,
                                                       const std::set<SceneDraft::BoxID>& boxes,
                                                       const std::vector<WindowRecord>& captured);

} // namespace vantrel::TakenFromDesk

// The line that summarises how launching a scene's applications went.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel::SceneSettlementCaption {

// "opened 3, placed 1 · Mail and Notes did not finish opening"; three stragglers or more read "Mail and 2
// more".
[[nodiscard]] std::string detail(std::int64_t opened, std::int64_t placed,
                                 const std::vector<std::string>& stragglers);

} // namespace vantrel::SceneSettlementCaption

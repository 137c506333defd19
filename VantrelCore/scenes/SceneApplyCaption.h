// The line that tells what applying a scene did.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel::SceneApplyCaption {

// "moved 2, opened 1", "opened 2 apps", "moved 2 · 1 app not open", "3 windows". When something was opened,
// what is not open goes unmentioned.
[[nodiscard]] std::string detail(std::int64_t moved, std::int64_t opened, std::int64_t notOpen);

} // namespace vantrel::SceneApplyCaption

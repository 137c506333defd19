// The line that summarises what applying a scene did.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel::SceneApplyCaption {

// "moved 2, opened 1", "opened 2 apps", "moved 2 · 1 app not open", "3 windows". If apps were opened, those
// not open are not mentioned.
[[nodiscard]] std::string detail(std::int64_t moved, std::int64_t opened, std::int64_t notOpen);

} // namespace vantrel::SceneApplyCaption

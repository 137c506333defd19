// The name of a copy of a scene.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vantrel::SceneCopy {

// "Write copy", else "Write copy 2" and so on, also for a copy of a copy: the first that is not taken. A long
// name is cut so that the result is valid.
[[nodiscard]] std::string name(std::string_view original,
                               const std::function<bool(const std::string& name)>& isTaken);

} // namespace vantrel::SceneCopy

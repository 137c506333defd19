// The tabs of the workbench, the window in which the user manages scenes, desks and rules.
#pragma once

#include <cstdint>

namespace vantrel {

enum class WorkbenchTab : std::uint8_t { scenes, desks, history, rules, settings };

} // namespace vantrel

// The methods for settings: Settings, SetSetting and UnsetSetting.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "VantrelCore/ports/UserDefaults.h"

#include <vector>

namespace vantrel {

// The settings outlive them.
[[nodiscard]] std::vector<ControlMethod> settingsMethods(UserDefaults& defaults);

} // namespace vantrel

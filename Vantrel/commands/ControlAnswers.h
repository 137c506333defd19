// Makes the answers that go over the session bus from what the controller publishes.
#pragma once

#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/StatusMessage.h"
#include "Vantrel/controller/PublishedState.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vantrel::ControlAnswers {

[[nodiscard]] PhaseMessage phase(const Phase& phase);

[[nodiscard]] StatusMessage status(const PublishedState& state,
                                   const std::filesystem::path& supportDirectory);

// The present desk first, also when nothing is stored for it, then the others by name.
[[nodiscard]] DesksMessage desks(const PublishedState& state, const std::vector<Layout>& layouts,
                                 const std::function<std::string(const std::string&)>& activeLayoutName);

} // namespace vantrel::ControlAnswers

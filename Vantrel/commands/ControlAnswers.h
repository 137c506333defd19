// Builds the replies sent over the session bus from the controller's published state.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/StatusMessage.h"
#include "Vantrel/controller/PublishedState.h"
#include "Vantrel/controller/RestoreOutcome.h"
#include "Vantrel/controller/SaveOutcome.h"
#include "VantrelCore/model/RestoreLog.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vantrel {
class AppController;
}

namespace vantrel::ControlAnswers {

[[nodiscard]] ControlAnswer refused(std::string sentence);

// Finds a scene by name or ID, ignoring case and white space around the name. When there is none, the error
// is a sentence for the user.
[[nodiscard]] std::expected<Scene, std::string> sceneCalled(const PublishedState& state,
                                                            const std::string& called);

// Finds a remembered desk by its configID or its name, ignoring case; an empty string means the current desk.
// When there is none, or more than one, the error is a sentence for the user.
[[nodiscard]] std::expected<RememberedDesk, std::string> deskCalled(const PublishedState& state,
                                                                    const std::string& called);

[[nodiscard]] PhaseMessage phase(const Phase& phase);

[[nodiscard]] StatusMessage status(const PublishedState& state,
                                   const std::filesystem::path& supportDirectory);

// The current desk first, even when nothing is stored for it, then the others by name.
[[nodiscard]] DesksMessage desks(const PublishedState& state, const std::vector<Layout>& layouts,
                                 const std::function<std::string(const std::string&)>& activeLayoutName);

// With the number of stashes and the date last seen.
[[nodiscard]] DesksMessage desks(AppController& controller);

// The restore log, and the number of windows restored in the last seven days.
[[nodiscard]] nlohmann::json history(const RestoreLog& log, const RestoreReceipts& receipts, Date now);

// Replies with the report of the requested restore, or with the reason why there is none.
[[nodiscard]] std::function<void(const RestoreOutcome&)> restoreReply(const ControlReply& reply);

// Replies with what was saved in the state's active layout, or with the reason why nothing was. The state
// outlives the callback.
[[nodiscard]] std::function<void(const SaveOutcome&)> saveReply(const PublishedState& state,
                                                                const ControlReply& reply);

} // namespace vantrel::ControlAnswers

// The option --dry-run: what a restore would do, as sent over the session bus and as printed.
#pragma once

#include "Vantrel/commands/Command.h"
#include "Vantrel/controller/RestorePreviewFlow.h"
#include "VantrelCore/text/Translation.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace vantrel {

void to_json(nlohmann::json& json, const RestorePreview& preview);

namespace DryRun {

// Replies with the preview, or with the reason why there is none.
[[nodiscard]] RestorePreviewFlow::Done reply(const ControlReply& reply);

// A summary, then a line for every window, those that are not in place first.
[[nodiscard]] std::string text(const nlohmann::json& preview, const DeskDrawing::Options& drawing);

// For verbs that move windows.
inline constexpr Word option{"--dry-run", marked("Print what would happen, and move nothing"),
                             ValueKind::flag};

// What such a verb does: calls `method` and prints its report, or calls `preview`. Both take `arguments`.
[[nodiscard]] ExitCode run(const VerbCall& call, const char* method, const char* preview,
                           const std::vector<std::string>& arguments);

} // namespace DryRun

} // namespace vantrel

// The text that vantrelctl prints for scenes, as lines no wider than the terminal.
#pragma once

#include "Vantrel/commands/ScenesMessage.h"
#include "Vantrel/commands/terminal/DeskDrawing.h"

#include <functional>
#include <string>

namespace vantrel::SceneTexts {

// A line for every scene, with a star at the one last applied, and a line about windows that have moved away
// from it. Empty if there are no scenes.
[[nodiscard]] std::string list(const ScenesMessage& message, const DeskDrawing::Options& options);

// Draws the scene and lists its windows.
[[nodiscard]] std::string scene(const SceneMessage& message, const DeskDrawing::Options& options,
                                const std::function<std::string(Date)>& dateText);

} // namespace vantrel::SceneTexts

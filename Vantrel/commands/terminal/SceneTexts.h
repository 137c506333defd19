// What vantrelctl prints of scenes, as lines no wider than the terminal.
#pragma once

#include "Vantrel/commands/ScenesMessage.h"
#include "Vantrel/commands/terminal/DeskDrawing.h"

#include <functional>
#include <string>

namespace vantrel::SceneTexts {

// A line for every scene, with a star at the one last applied, and what has moved away from it; empty
// without any scene.
[[nodiscard]] std::string list(const ScenesMessage& message, const DeskDrawing::Options& options);

// The scene drawn, with its windows.
[[nodiscard]] std::string scene(const SceneMessage& message, const DeskDrawing::Options& options,
                                const std::function<std::string(Date)>& dateText);

} // namespace vantrel::SceneTexts

// The operations of the tab Scenes.
#pragma once

#include "Vantrel/interface/SceneActions.h"
#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/editor/SceneEditor.h"
#include "Vantrel/interface/wallpaper/WallpaperServices.h"
#include "Vantrel/interface/workbench/scenes/ScenesContent.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct ScenesActions {
    using Problem = SceneActions::Problem;

    SceneActions scenes{};
    // Has the scene applied every day at the time that was typed.
    std::function<Problem(const std::string& id, const std::string& time)> addTime =
        [](const auto&, const auto&) { return std::nullopt; };
    // Makes the editor for the scene; `close` is called when the user leaves it. Null if the scene is gone.
    std::function<SceneEditor*(const std::string& id, std::function<void()> close, QWidget* parent)> edit =
        [](const auto&, const auto&, QWidget*) { return nullptr; };
    // What the editor offers; called again when windows open and close.
    std::function<std::vector<EditorApplication>()> applications = [] {
        return std::vector<EditorApplication>();
    };
    // Makes a scene without windows on this desk and returns its identifier; none when it was refused, which
    // has been said.
    std::function<std::optional<std::string>(const std::string& name)> createEmpty = [](const auto&) {
        return std::nullopt;
    };
    std::function<void(const std::string& trigger)> removeTrigger = [](const auto&) {};
    // Gives displays of the scene a picture; none leaves theirs as it is.
    std::function<void(const std::string& id, const std::vector<std::string>& displays,
                       const std::optional<std::string>& file)>
        setWallpaper = [](const auto&, const auto&, const auto&) {};
    WallpaperServices wallpapers{};
    HotKeyRecorder::KeyReader keyCode = [](const QKeyEvent&) { return std::nullopt; };
    std::function<std::vector<TakenHotKey>()> takenHotKeys = [] { return std::vector<TakenHotKey>(); };
    // The moment, the zone and the history; what is searched and chosen is left empty.
    std::function<ScenesContent::Context()> context = [] { return ScenesContent::Context{.now = {}}; };
};

} // namespace vantrel

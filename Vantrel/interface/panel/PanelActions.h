// What the panel asks of the program.
#pragma once

#include "Vantrel/interface/SceneActions.h"
#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/panel/PanelContent.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct PanelActions {
    using Problem = SceneActions::Problem;

    std::function<void(bool)> setEnabled = [](bool) {};
    std::function<Problem(const std::string& name)> renameDesk = [](const auto&) { return std::nullopt; };
    // While the name is typed, as are the others called so.
    std::function<Problem(const std::string& name)> problemWithDeskName = [](const auto&) {
        return std::nullopt;
    };
    // The last argument is what was typed, if the deed needs that.
    std::function<void(PanelContent::Message::Deed, const std::string&)> perform = [](auto, const auto&) {};
    std::function<void(PanelContent::Message::Kind)> dismiss = [](auto) {};

    std::function<void()> restore = [] {};
    std::function<void()> save = [] {};
    std::function<void()> stash = [] {};
    std::function<void()> undo = [] {};

    std::function<void(const std::string& name)> switchLayout = [](const auto&) {};
    std::function<void(const std::string& name)> saveLayoutAs = [](const auto&) {};
    std::function<Problem(const std::string& name)> problemWithLayoutName = [](const auto&) {
        return std::nullopt;
    };
    std::function<Problem(const std::string& name)> problemWithLayoutRename = [](const auto&) {
        return std::nullopt;
    };
    std::function<Problem(const std::string& name, const std::string& newName)> renameLayout =
        [](const auto&, const auto&) { return std::nullopt; };
    std::function<Problem(const std::string& name)> removeLayout = [](const auto&) { return std::nullopt; };
    // Brings back the layout that was removed last.
    std::function<void()> putBackLayout = [] {};
    std::function<void(bool)> setPinned = [](bool) {};

    SceneActions scenes{};
    std::function<Problem(std::optional<HotKeyCombo>)> setSwitcherHotkey = [](auto) { return std::nullopt; };
    HotKeyRecorder::KeyReader keyCode = [](const QKeyEvent&) { return std::nullopt; };
    std::function<std::vector<TakenHotKey>()> takenHotKeys = [] { return std::vector<TakenHotKey>(); };

    // Null while these windows do not exist; their entries are then left out.
    std::function<void()> openWorkbench{};
    std::function<void()> openSettings{};
    std::function<void()> showHistory{};
    std::function<void()> openIntroduction{};
    std::function<void()> quit = [] {};
};

} // namespace vantrel
